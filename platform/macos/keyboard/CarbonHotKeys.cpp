#include "platform/macos/keyboard/CarbonHotKeys.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/GlobalEventMonitor.h"
#include "platform/macos/MainThread.h"

namespace quorvane {
namespace {

constexpr std::int64_t lastKeyCode = 0x7f;
constexpr OSType signature = 0x5175'7276; // "Qurv": tells our hot keys from those of others in the process

UInt32 carbonModifiers(std::uint64_t flags) {
    constexpr std::pair<std::uint64_t, UInt32> modifiers[] = {{ModifierFlag::command, cmdKey},
                                                              {ModifierFlag::shift, shiftKey},
                                                              {ModifierFlag::option, optionKey},
                                                              {ModifierFlag::control, controlKey}};
    UInt32 result = 0;
    for (const auto& [flag, modifier] : modifiers) {
        if (flags & flag) result |= modifier;
    }
    return result;
}

} // namespace

CarbonHotKeys::CarbonHotKeys() {
    requireMainThread();
    // The dispatcher's target, unlike the application's, gets hot keys while a menu is open, too.
    const EventTypeSpec pressed{kEventClassKeyboard, kEventHotKeyPressed};
    if (InstallEventHandler(GetEventDispatcherTarget(), &CarbonHotKeys::handle, 1, &pressed, this,
                            &handler_) != noErr)
        handler_ = nullptr;
}

CarbonHotKeys::~CarbonHotKeys() {
    for (auto& [number, key] : keys_)
        giveBack(key);
    if (handler_) RemoveEventHandler(handler_);
}

std::optional<Subscription> CarbonHotKeys::registerHotKey(const KeyCombination& combination,
                                                          std::function<void()> pressed) {
    requireMainThread();
    if (!handler_ || combination.keyCode < 0 || combination.keyCode > lastKeyCode) return std::nullopt;
    const auto number = ++lastNumber_;
    HotKey key{static_cast<UInt32>(combination.keyCode), carbonModifiers(combination.modifierFlags),
               std::move(pressed), nullptr};
    const auto isTheSame = [&key](const auto& other) {
        return other.second.keyCode == key.keyCode && other.second.modifiers == key.modifiers;
    };
    // The system knows of none while they are suspended.
    if (std::ranges::any_of(keys_, isTheSame)) return std::nullopt;
    key.reference = take(number, key);
    if (!key.reference) return std::nullopt;
    if (suspensions_ > 0) giveBack(key); // It was only tried.
    keys_.emplace(number, std::move(key));
    return Subscription([this, alive = std::weak_ptr(alive_), number] {
        if (alive.expired()) return;
        auto ended = keys_.extract(number);
        giveBack(ended.mapped());
    });
}

EventHotKeyRef CarbonHotKeys::take(UInt32 number, const HotKey& key) {
    constexpr OptionBits shared = 0;
    EventHotKeyRef reference = nullptr;
    const auto status = RegisterEventHotKey(key.keyCode, key.modifiers, {signature, number},
                                            GetEventDispatcherTarget(), shared, &reference);
    return status == noErr ? reference : nullptr;
}

void CarbonHotKeys::giveBack(HotKey& key) {
    if (key.reference) UnregisterEventHotKey(std::exchange(key.reference, nullptr));
}

Subscription CarbonHotKeys::suspend() {
    requireMainThread();
    if (++suspensions_ == 1) {
        for (auto& [number, key] : keys_)
            giveBack(key);
    }
    return Subscription([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired() && --suspensions_ == 0) resume();
    });
}

void CarbonHotKeys::resume() {
    bool isLost = false;
    for (auto& [number, key] : keys_) {
        key.reference = take(number, key);
        isLost |= !key.reference;
    }
    if (isLost) changed.emit();
}

/// What a handler throws would have to go through frames of the system, which cannot be unwound: it ends the
/// program here instead.
OSStatus CarbonHotKeys::handle(EventHandlerCallRef, EventRef event, void* hotKeys) noexcept {
    return static_cast<const CarbonHotKeys*>(hotKeys)->press(event);
}

OSStatus CarbonHotKeys::press(EventRef event) const {
    EventHotKeyID id{};
    const auto status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                                          sizeof id, nullptr, &id);
    if (status != noErr || id.signature != signature) return eventNotHandledErr;
    const auto key = keys_.find(id.id);
    // A press that was under way when they were suspended is none any more.
    if (key == keys_.end() || !key->second.reference) return eventNotHandledErr;
    const auto pressed = key->second.pressed; // It may end its own registration.
    pressed();
    return noErr;
}

} // namespace quorvane
