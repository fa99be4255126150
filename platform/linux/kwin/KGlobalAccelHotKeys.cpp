#include "platform/linux/kwin/KGlobalAccelHotKeys.h"

#include <algorithm>
#include <utility>

#include <QDBusArgument>

#include "platform/linux/dbus/AsyncCall.h"
#include "platform/linux/keyboard/KeyCodes.h"
#include "platform/linux/keyboard/XkbLayoutKeys.h"
#include "platform/linux/kwin/QtKeys.h"

namespace quorvane {
namespace {

const QString shortcutsService = QStringLiteral("org.kde.kglobalaccel");
const QString component = QStringLiteral("quorvane");
const QString actionPrefix = QStringLiteral("hot-key-");

/// Shown in the settings of KDE while the program runs.
const QString componentName = QStringLiteral("Quorvane");

QString actionOf(unsigned number) {
    return actionPrefix + QString::number(number);
}

QStringList fullAction(unsigned number) {
    return {component, actionOf(number), componentName, QStringLiteral("Hot key %1").arg(number + 1)};
}

QDBusMessage accelCall(const char* method, const QVariantList& arguments) {
    auto call = QDBusMessage::createMethodCall(shortcutsService, "/kglobalaccel", "org.kde.KGlobalAccel",
                                               QLatin1String(method));
    call.setArguments(arguments);
    return call;
}

} // namespace

KGlobalAccelHotKeys::KGlobalAccelHotKeys(const QDBusConnection& bus, LayoutKeyboard& keyboard)
    : bus_(bus)
    , keyboard_(keyboard)
    , service_(bus, shortcutsService)
    , layoutChanges_(keyboard.mapChanged.connect([this] { followLayouts(); }))
    , owners_(service_.told.connect([this](const auto& /*before*/) { serviceTold(); })) {
    readKeys({"us", ""});
    bus_.connect(QString(), "/component/" + component, "org.kde.kglobalaccel.Component",
                 "globalShortcutPressed", this, SLOT(shortcutPressed(QDBusMessage)));
}

void KGlobalAccelHotKeys::serviceTold() {
    bound_.clear();
    isReady_ = false;
    if (service_.isOwned()) removeLeftOnes();
}

/// It keeps them in a file. A process that was killed has left its own: they would have the keys that are
/// bound next.
void KGlobalAccelHotKeys::removeLeftOnes() {
    const QStringList ofComponent{component, {}, {}, {}};
    callAsync(bus_, accelCall("allActionsForComponent", {ofComponent}), this, [this](const auto& answer) {
        for (const auto& each : qdbus_cast<QList<QStringList>>(answer.arguments().value(0)))
            remove(each.value(1));
        isReady_ = service_.isOwned();
        changed.emit();
    });
}

void KGlobalAccelHotKeys::remove(const QString& action) {
    auto call = accelCall("unregister", {component, action});
    call.setAutoStartService(false);
    bus_.send(call);
}

void KGlobalAccelHotKeys::bind(unsigned number, const KeyCombination& combination,
                               std::function<void(bool isGranted)> answered) {
    const auto key = keyOf(combination);
    if (!key) {
        QMetaObject::invokeMethod(
            this, [answered = std::move(answered)] { answered(false); }, Qt::QueuedConnection);
        return;
    }
    if (!isReady_) return; // All are bound once it is.
    bound_.insert(number);
    callAsync(bus_, accelCall("doRegister", {fullAction(number)}), this);
    // The answer has the keys that it has now: not one that somebody else has.
    constexpr unsigned isPresent = 2;
    constexpr unsigned notAsLastTime = 4;
    const auto call = accelCall("setShortcut", {fullAction(number), QVariant::fromValue(QList<int>{*key}),
                                                isPresent | notAsLastTime});
    callAsync(bus_, call, this,
              [this, number, key = *key, answered = std::move(answered)](const auto& answer) {
                  // Without an answer it may have been done.
                  const bool isRefused = answer.type() == QDBusMessage::ReplyMessage &&
                                         !qdbus_cast<QList<int>>(answer.arguments().value(0)).contains(key);
                  if (isRefused && bound_.erase(number) > 0) remove(actionOf(number));
                  answered(!isRefused);
              });
}

void KGlobalAccelHotKeys::unbind(unsigned number, const KeyCombination& /*combination*/) {
    if (bound_.erase(number) > 0) remove(actionOf(number));
}

/// Its arguments are the component, the action and the time.
void KGlobalAccelHotKeys::shortcutPressed(const QDBusMessage& signal) {
    const auto action = signal.arguments().value(1).toString();
    if (signal.service() == service_.owner() && action.startsWith(actionPrefix))
        pressed.emit(action.mid(actionPrefix.size()).toUInt());
}

void KGlobalAccelHotKeys::followLayouts() {
    const auto layouts = keyboard_.layouts().ofGroups;
    const auto latin = std::ranges::find_if(layouts, hasLatinLetters);
    const auto before = std::pair(typed_, typedWithShift_);
    readKeys(latin == layouts.end() ? XkbLayout{"us", ""} : *latin);
    if (before != std::pair(typed_, typedWithShift_)) changed.emit();
}

void KGlobalAccelHotKeys::readKeys(const XkbLayout& layout) {
    typed_ = typedKeysymsOf(layout);
    typedWithShift_ = typedKeysymsOf(layout, TypedWith::shift);
}

std::optional<int> KGlobalAccelHotKeys::keyOf(const KeyCombination& combination) const {
    const auto keycode = xKeycodeOf(combination.keyCode);
    if (!keycode) return std::nullopt;
    const auto keysymIn = [&](const TypedKeysyms& typed) {
        const auto keysym = typed.find(*keycode);
        return keysym == typed.end() ? 0 : keysym->second;
    };
    return qtKeyOf(combination, keysymIn(typed_), keysymIn(typedWithShift_));
}

} // namespace quorvane
