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

PlasmaKeyboard::PlasmaKeyboard(const QDBusConnection& bus) : bus_(bus) {
    bus_.connect(QStringLiteral("org.freedesktop.DBus"), "/org/freedesktop/DBus",
                 QStringLiteral("org.freedesktop.DBus"), "NameOwnerChanged", {keyboardService}, QString(),
                 this, SLOT(ownerChanged(QString, QString, QString)));
    bus_.connect(keyboardService, path, interfaceName, "layoutChanged", this, SLOT(layoutChanged(unsigned)));
    bus_.connect(keyboardService, path, interfaceName, "layoutListChanged", this, SLOT(readLayouts()));
    readLayouts();
}

void PlasmaKeyboard::ownerChanged(const QString& /*name*/, const QString& /*oldOwner*/,
                                  const QString& newOwner) {
    group_.forgetRequests();
    if (newOwner.isEmpty())
        takeSingleLayout();
    else
        readLayouts();
}

void PlasmaKeyboard::layoutChanged(unsigned group) {
    group_.tell(group);
    groupChanged.emit(group_.effective());
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
        if (names.empty()) {
            // No answer is none; but when nobody has the name, there is but one layout.
            if (list.errorName() == "org.freedesktop.DBus.Error.ServiceUnknown") takeSingleLayout();
            return;
        }
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
