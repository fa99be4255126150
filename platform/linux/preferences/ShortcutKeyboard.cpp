#include "platform/linux/preferences/ShortcutKeyboard.h"

#include <utility>

#include <QCoreApplication>

#include "platform/GlobalEventMonitor.h"

namespace quorvane {

ShortcutKeyboard::ShortcutKeyboard(PrintedKeyboard& keyboard, WindowHost& host)
    : keyboard_(keyboard)
    , host_(host)
    , changes_(keyboard.changed.connect([this] {
        if (std::exchange(isKnown_, false)) changed.emit();
    })) {}

void ShortcutKeyboard::read() {
    if (isKnown_) return;
    isKnown_ = true;
    bits_ = keyboard_.modifierBits();
    names_ = KeyNames(keyboard_.typedKeysyms());
}

RecorderBehaviour::Modifiers ShortcutKeyboard::modifiersOfState(std::uint32_t state) {
    read();
    const struct {
        unsigned bit;
        std::uint64_t flag; ///< 0: a lock, which hot keys do not mind.
    } known[] = {{ModifierBits::control, ModifierFlag::control},
                 {bits_.option, ModifierFlag::option},
                 {ModifierBits::shift, ModifierFlag::shift},
                 {bits_.command, ModifierFlag::command},
                 {ModifierBits::capsLock, 0},
                 {bits_.numLock, 0}};
    RecorderBehaviour::Modifiers modifiers;
    unsigned others = state & 0xff; // The rest are the mouse's buttons and the group.
    for (const auto& [bit, flag] : known) {
        if (state & bit) modifiers.flags |= flag;
        others &= ~bit;
    }
    modifiers.haveOthers = others != 0;
    return modifiers;
}

RecorderBehaviour::Modifiers ShortcutKeyboard::heldModifiers() {
    return modifiersOfState(keyboard_.heldState());
}

QString ShortcutKeyboard::textOfModifiers(std::uint64_t flags) {
    // The toolkit has them in all languages it speaks, as menus write them.
    const struct {
        std::uint64_t flag;
        const char* name;
    } modifiers[] = {{ModifierFlag::control, QT_TRANSLATE_NOOP("QShortcut", "Ctrl")},
                     {ModifierFlag::option, QT_TRANSLATE_NOOP("QShortcut", "Alt")},
                     {ModifierFlag::shift, QT_TRANSLATE_NOOP("QShortcut", "Shift")},
                     {ModifierFlag::command, QT_TRANSLATE_NOOP("QShortcut", "Super")}};
    QString text;
    for (const auto& [flag, name] : modifiers)
        if (flags & flag) text += QCoreApplication::translate("QShortcut", name) + '+';
    return text;
}

QString ShortcutKeyboard::textOf(const InputShortcut& shortcut) {
    read();
    return textOfModifiers(static_cast<std::uint64_t>(shortcut.modifierFlags)) +
           names_.nameOf(shortcut.keyCode);
}

} // namespace quorvane
