#include "platform/linux/preferences/ShortcutKeyboard.h"

#include <QCoreApplication>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

ShortcutKeyboard::ShortcutKeyboard(XConnection& x)
    : x_(x)
    , events_(x.onEvent([this](const auto& event) {
        if (!isKnown_ || !isKeyboardMapEvent(x_, event)) return;
        isKnown_ = false;
        changed.emit();
    })) {
    selectKeyboardMapEvents(x);
}

void ShortcutKeyboard::read() {
    if (isKnown_) return;
    isKnown_ = true;
    bits_ = ModifierBits::read(x_).value_or(ModifierBits{});
    names_ = KeyNames::read(x_);
}

RecorderBehaviour::Modifiers ShortcutKeyboard::modifiersOfState(std::uint32_t state) {
    read();
    const struct {
        unsigned bit;
        std::uint64_t flag; ///< 0: a lock, which hot keys do not mind.
    } known[] = {{XCB_MOD_MASK_CONTROL, ModifierFlag::control},
                 {bits_.option, ModifierFlag::option},
                 {XCB_MOD_MASK_SHIFT, ModifierFlag::shift},
                 {bits_.command, ModifierFlag::command},
                 {XCB_MOD_MASK_LOCK, 0},
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
    const XcbReply<xcb_query_pointer_reply_t> state(
        xcb_query_pointer_reply(x_.xcb(), xcb_query_pointer(x_.xcb(), x_.root()), nullptr));
    return modifiersOfState(state ? state->mask : 0);
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
