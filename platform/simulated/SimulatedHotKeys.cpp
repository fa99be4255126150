#include "platform/simulated/SimulatedHotKeys.h"

#include <algorithm>
#include <ios>
#include <iterator>
#include <sstream>

#include "platform/GlobalEventMonitor.h"

namespace quorvane {
namespace {

constexpr std::int64_t lastKeyCode = 0x7f;

std::uint64_t modifiersThatCount(std::uint64_t flags) {
    return flags &
           (ModifierFlag::command | ModifierFlag::control | ModifierFlag::option | ModifierFlag::shift);
}

std::string textOf(const KeyCombination& combination) {
    std::ostringstream text;
    text << combination.keyCode << std::hex << " 0x" << combination.modifierFlags;
    return text.str();
}

} // namespace

SimulatedHotKeys::Entries::iterator SimulatedHotKeys::find(const KeyCombination& combination) {
    return std::ranges::find_if(*entries_, [&](const Entry& entry) {
        return entry.combination.keyCode == combination.keyCode &&
               modifiersThatCount(entry.combination.modifierFlags) ==
                   modifiersThatCount(combination.modifierFlags);
    });
}

std::optional<Subscription> SimulatedHotKeys::registerHotKey(const KeyCombination& combination,
                                                             std::function<void()> pressed) {
    const bool isRefused =
        combination.keyCode < 0 || combination.keyCode > lastKeyCode || find(combination) != entries_->end();
    journal_.add("register ", textOf(combination), isRefused ? ", refused" : "");
    if (isRefused) return std::nullopt;
    entries_->push_back({combination, std::move(pressed)});
    return Subscription([this, remaining = std::weak_ptr(entries_), entry = std::prev(entries_->end())] {
        if (remaining.expired()) return;
        journal_.add("unregister ", textOf(entry->combination));
        entries_->erase(entry);
    });
}

bool SimulatedHotKeys::press(const KeyCombination& combination) {
    const auto entry = find(combination);
    if (entry == entries_->end() || !entry->pressed) return false;
    const auto pressed = entry->pressed; // it may end its own registration
    pressed();
    return true;
}

} // namespace quorvane
