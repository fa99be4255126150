#include "platform/linux/kwin/QtKeys.h"

#include <map>

#include <Qt>
#include <xkbcommon/xkbcommon.h>

#include "platform/GlobalEventMonitor.h"

namespace quorvane {
namespace {

std::optional<int> keyOfKeysym(std::uint32_t keysym) {
    static const std::map<std::uint32_t, int> keys{
        {XKB_KEY_Escape, Qt::Key_Escape},
        {XKB_KEY_Tab, Qt::Key_Tab},
        {XKB_KEY_ISO_Left_Tab, Qt::Key_Backtab},
        {XKB_KEY_BackSpace, Qt::Key_Backspace},
        {XKB_KEY_Return, Qt::Key_Return},
        {XKB_KEY_Insert, Qt::Key_Insert},
        {XKB_KEY_Delete, Qt::Key_Delete},
        {XKB_KEY_Home, Qt::Key_Home},
        {XKB_KEY_End, Qt::Key_End},
        {XKB_KEY_Prior, Qt::Key_PageUp},
        {XKB_KEY_Next, Qt::Key_PageDown},
        {XKB_KEY_Left, Qt::Key_Left},
        {XKB_KEY_Right, Qt::Key_Right},
        {XKB_KEY_Up, Qt::Key_Up},
        {XKB_KEY_Down, Qt::Key_Down},
        {XKB_KEY_Menu, Qt::Key_Menu},
        {XKB_KEY_Help, Qt::Key_Help},
        {XKB_KEY_XF86AudioRaiseVolume, Qt::Key_VolumeUp},
        {XKB_KEY_XF86AudioLowerVolume, Qt::Key_VolumeDown},
        {XKB_KEY_XF86AudioMute, Qt::Key_VolumeMute},
    };
    if (keysym >= XKB_KEY_F1 && keysym <= XKB_KEY_F35)
        return static_cast<int>(Qt::Key_F1 + (keysym - XKB_KEY_F1));
    if (const auto key = keys.find(keysym); key != keys.end()) return key->second;
    // Those of the keypad type what others do, too.
    if (keysym >= XKB_KEY_KP_Space && keysym <= XKB_KEY_KP_Equal) return std::nullopt;
    // Qt numbers keys by the capital letter they type.
    const auto letter = xkb_keysym_to_utf32(xkb_keysym_to_upper(keysym));
    if (letter < 0x20) return std::nullopt;
    return static_cast<int>(letter);
}

bool isLetter(std::uint32_t keysym) {
    return xkb_keysym_to_upper(keysym) != xkb_keysym_to_lower(keysym);
}

} // namespace

std::optional<int> qtKeyOf(const KeyCombination& combination, std::uint32_t keysym,
                           std::uint32_t shiftedKeysym) {
    const auto has = [&](std::uint64_t flag) { return (combination.modifierFlags & flag) != 0; };
    // Shift is part of what a key types, unless that is a letter: "!" is a key.
    const bool isShiftUsed =
        has(ModifierFlag::shift) && !isLetter(keysym) && shiftedKeysym != 0 && shiftedKeysym != keysym;
    const auto key = keyOfKeysym(isShiftUsed ? shiftedKeysym : keysym);
    if (!key) return std::nullopt;
    int modifiers = 0;
    if (has(ModifierFlag::shift) && !isShiftUsed) modifiers |= Qt::SHIFT;
    if (has(ModifierFlag::control)) modifiers |= Qt::CTRL;
    if (has(ModifierFlag::option)) modifiers |= Qt::ALT;
    if (has(ModifierFlag::command)) modifiers |= Qt::META;
    return *key | modifiers;
}

} // namespace quorvane
