#include "shortcuts/InputHotKeys.h"

#include "settings/Keys.h"

namespace quorvane {

void registerAllHotKey(const UserDefaults& standard, PTHotKeyCenter& center, const PTHotKey::Action& action) {
    const auto stored = standard.objectForKey(key::shortcutOfInput);
    const auto* shortcuts = stored.dictionary();
    if (!shortcuts) return;
    for (const auto& [inputSourceID, keyCombo] : *shortcuts)
        center.registerHotKey(PTHotKey::hotKeyWithIdentifier(inputSourceID, keyCombo, action));
}

void refreshHotKey(const UserDefaults& standard, PTHotKeyCenter& center, const std::string& inputSourceID,
                   const PTHotKey::Action& action) {
    const auto keyCombo = standard.objectForKey(key::shortcutOfInput)[inputSourceID];
    if (!keyCombo.isNothing())
        center.registerHotKey(PTHotKey::hotKeyWithIdentifier(inputSourceID, keyCombo, action));
    else if (const auto hotKey = center.hotKeyWithIdentifier(inputSourceID))
        center.unregisterHotKey(*hotKey);
}

} // namespace quorvane
