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

} // namespace quorvane
