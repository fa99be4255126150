#include "platform/linux/keyboard/AskedHotKeys.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/GlobalEventMonitor.h"

namespace quorvane {
namespace {

constexpr std::uint64_t flagsThatCount =
    ModifierFlag::command | ModifierFlag::control | ModifierFlag::option | ModifierFlag::shift;

} // namespace

AskedHotKeys::AskedHotKeys(HotKeyBindings& bindings)
    : bindings_(bindings)
    , presses_(bindings.pressed.connect([this](unsigned number) {
        const auto key = std::ranges::find(keys_, number, &HotKey::number);
        if (key == keys_.end()) return;
        const auto pressed = key->pressed; // It may end its own registration.
        pressed();
    }))
    , changes_(bindings.changed.connect([this] { bindAnew(); })) {}

AskedHotKeys::~AskedHotKeys() {
    for (const auto& key : keys_)
        bindings_.unbind(key.number, key.combination);
}

std::optional<Subscription> AskedHotKeys::registerHotKey(const KeyCombination& combination,
                                                         std::function<void()> pressed) {
    const KeyCombination counted{combination.keyCode, combination.modifierFlags & flagsThatCount};
    const bool isOurs = std::ranges::count(keys_, counted, &HotKey::combination) > 0;
    if (isOurs || std::ranges::count(refused_, counted) > 0) return std::nullopt;
    keys_.push_back({nextNumber_++, counted, std::move(pressed)});
    const auto place = std::prev(keys_.end());
    bind(*place);
    return Subscription([this, alive = std::weak_ptr(alive_), number = place->number] {
        if (alive.expired()) return;
        const auto key = std::ranges::find(keys_, number, &HotKey::number);
        if (key == keys_.end()) return;
        bindings_.unbind(number, key->combination);
        keys_.erase(key);
    });
}

void AskedHotKeys::bind(const HotKey& key) {
    bindings_.bind(key.number, key.combination,
                   [this, alive = std::weak_ptr(alive_), number = key.number](bool isGranted) {
                       if (!alive.expired() && !isGranted) refused(number);
                   });
}

/// The registration stays and rests: whoever made it learns by making it again.
void AskedHotKeys::refused(unsigned number) {
    const auto key = std::ranges::find(keys_, number, &HotKey::number);
    if (key == keys_.end()) return;
    refused_.push_back(key->combination);
    keys_.erase(key);
    changed.emit();
}

void AskedHotKeys::bindAnew() {
    refused_.clear();
    for (const auto& key : std::list(keys_))
        bind(key);
    changed.emit();
}

} // namespace quorvane
