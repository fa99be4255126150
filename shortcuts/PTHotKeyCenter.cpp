#include "shortcuts/PTHotKeyCenter.h"

#include "settings/InputShortcut.h"

namespace quorvane {

bool PTHotKeyCenter::registerHotKey(PTHotKeyRef hotKey) {
    unregisterHotKey(*hotKey);
    const auto shortcut = InputShortcut::ofRecord(hotKey->keyCombo());
    if (!shortcut) return false;
    auto subscription =
        hotKeys_.registerHotKey({shortcut->keyCode, static_cast<std::uint64_t>(shortcut->modifierFlags)},
                                [hotKey] { hotKey->perform(); });
    if (!subscription) return false;
    const auto identifier = hotKey->identifier();
    registrations_.emplace(identifier, Registration{std::move(hotKey), std::move(*subscription)});
    return true;
}

void PTHotKeyCenter::unregisterHotKey(const PTHotKey& hotKey) {
    registrations_.erase(hotKey.identifier());
}

PTHotKeyRef PTHotKeyCenter::hotKeyWithIdentifier(std::string_view identifier) const {
    const auto found = registrations_.find(identifier);
    return found == registrations_.end() ? nullptr : found->second.hotKey;
}

} // namespace quorvane
