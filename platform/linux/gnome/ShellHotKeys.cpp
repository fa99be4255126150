#include "platform/linux/gnome/ShellHotKeys.h"

#include <utility>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/keyboard/KeyCodes.h"

namespace quorvane {

QString acceleratorOf(const KeyCombination& combination) {
    const auto key = xKeycodeOf(combination.keyCode);
    if (!key) return {};
    QString accelerator;
    for (const auto& [flag, name] : {std::pair(ModifierFlag::control, "<Control>"),
                                     {ModifierFlag::option, "<Alt>"},
                                     {ModifierFlag::shift, "<Shift>"},
                                     {ModifierFlag::command, "<Super>"}})
        if (combination.modifierFlags & flag) accelerator += name;
    return accelerator + QStringLiteral("0x%1").arg(*key, 2, 16, QLatin1Char('0'));
}

ShellHotKeys::ShellHotKeys(GnomeShell& shell, ShellMessages& messages) : shell_(shell) {
    subscriptions_.push_back(
        messages.hotKeyPressed.connect([this](unsigned number) { pressed.emit(number); }));
    subscriptions_.push_back(shell.started.connect([this] { changed.emit(); }));
}

void ShellHotKeys::bind(unsigned number, const KeyCombination& combination,
                        std::function<void(bool isGranted)> answered) {
    // The shell refuses what is no accelerator.
    shell_.call("BindHotKey", {number, acceleratorOf(combination)},
                [answered = std::move(answered)](const QDBusMessage& answer) {
                    answered(answer.type() == QDBusMessage::ReplyMessage &&
                             answer.arguments().value(0).toBool());
                });
}

void ShellHotKeys::unbind(unsigned number, const KeyCombination& /*combination*/) {
    shell_.call("UnbindHotKey", {number});
}

} // namespace quorvane
