#include "platform/linux/kwin/PlasmaKeyboard.h"

#include <utility>

#include <QDBusArgument>

#include "platform/linux/Log.h"
#include "platform/linux/dbus/AsyncCall.h"

namespace quorvane {
namespace {

const QString keyboardService = QStringLiteral("org.kde.keyboard");
const QString path = QStringLiteral("/Layouts");
const QString interfaceName = QStringLiteral("org.kde.KeyboardLayouts");

QDBusMessage layoutsCall(const char* method, const QVariantList& arguments = {}) {
    auto call = QDBusMessage::createMethodCall(keyboardService, path, interfaceName, QLatin1String(method));
    call.setArguments(arguments);
    return call;
}

/// `a(sss)`: short name, the user's own name for it, long name.
std::vector<PlasmaLayoutName> namesIn(const QDBusMessage& answer) {
    std::vector<PlasmaLayoutName> names;
    if (answer.signature() != "a(sss)") return names;
    const auto array = answer.arguments().at(0).value<QDBusArgument>();
    array.beginArray();
    while (!array.atEnd()) {
        PlasmaLayoutName name;
        QString usersName;
        array.beginStructure();
        array >> name.shortName >> usersName >> name.longName;
        array.endStructure();
        names.push_back(std::move(name));
    }
    array.endArray();
    return names;
}

} // namespace

PlasmaKeyboard::PlasmaKeyboard(const QDBusConnection& bus)
    : bus_(bus)
    , service_(bus, keyboardService)
    , owners_(service_.told.connect([this](const auto& /*before*/) { serviceTold(); })) {
    bus_.connect(QString(), path, interfaceName, "layoutChanged", this, SLOT(layoutChanged(QDBusMessage)));
    bus_.connect(QString(), path, interfaceName, "layoutListChanged", this,
                 SLOT(layoutListChanged(QDBusMessage)));
}

void PlasmaKeyboard::serviceTold() {
    group_.forgetRequests();
    if (service_.isOwned())
        readLayouts();
    else
        takeSingleLayout();
}

void PlasmaKeyboard::layoutChanged(const QDBusMessage& signal) {
    if (signal.service() != service_.owner() || signal.signature() != "u") return;
    group_.tell(signal.arguments().at(0).toUInt());
    groupChanged.emit(group_.effective());
}

void PlasmaKeyboard::layoutListChanged(const QDBusMessage& signal) {
    if (signal.service() == service_.owner()) readLayouts();
}

void PlasmaKeyboard::lockGroup(unsigned group) {
    if (layouts_.ofGroups.size() < 2) return;
    group_.request(group);
    callAsync(bus_, layoutsCall("setLayout", {group}), this, [this](const QDBusMessage& /*answer*/) {
        group_.answered();
        groupChanged.emit(group_.effective());
    });
}

void PlasmaKeyboard::readLayouts() {
    callAsync(bus_, layoutsCall("getLayoutsList"), this, [this](const QDBusMessage& list) {
        const auto names = namesIn(list);
        if (names.empty()) return; // No answer is none.
        callAsync(bus_, layoutsCall("getLayout"), this, [this, names](const QDBusMessage& current) {
            if (current.signature() == "u") takeLayouts(names, current.arguments().at(0).toUInt());
        });
    });
}

void PlasmaKeyboard::takeLayouts(const std::vector<PlasmaLayoutName>& names, unsigned group) {
    KeyboardLayouts layouts{plasmaLayouts(names, configuredPlasmaLayouts()), {}};
    for (const auto& name : names)
        layouts.names.push_back(name.longName.toStdString());
    group_.tell(group);
    if (std::exchange(layouts_, layouts) != layouts)
        mapChanged.emit();
    else
        groupChanged.emit(group_.effective());
}

void PlasmaKeyboard::takeSingleLayout() {
    KeyboardLayouts layouts{configuredPlasmaLayouts(), {}};
    if (layouts.ofGroups.size() != 1) layouts.ofGroups.clear(); // KWin has gone, or uses something else.
    if (layouts.ofGroups.empty()) return;
    group_.tell(0);
    if (std::exchange(layouts_, layouts) == layouts) return;
    explainSingleLayout();
    mapChanged.emit();
}

void PlasmaKeyboard::explainSingleLayout() {
    auto question = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", QStringLiteral("NameHasOwner"));
    question.setArguments({QStringLiteral("org.fcitx.Fcitx5")});
    callAsync(bus_, question, this, [](const QDBusMessage& answer) {
        if (answer.arguments().value(0).toBool())
            logLine("KWin has one layout, perhaps because Fcitx5 has replaced the list: it does so unless "
                    "\"Allow Overriding System XKB Settings\" is off among its settings for Wayland");
    });
}

} // namespace quorvane
