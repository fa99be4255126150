#include "platform/macos/keyboard/CarbonHotKeys.h"

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
    for (const auto& [number, key] : keys_)
        UnregisterEventHotKey(key.reference);
    if (handler_) RemoveEventHandler(handler_);
}

std::optional<Subscription> CarbonHotKeys::registerHotKey(const KeyCombination& combination,
                                                          std::function<void()> pressed) {
    requireMainThread();
    if (!handler_ || combination.keyCode < 0 || combination.keyCode > lastKeyCode) return std::nullopt;
    const auto number = ++lastNumber_;
    constexpr OptionBits shared = 0;
    EventHotKeyRef reference = nullptr;
    const auto status = RegisterEventHotKey(static_cast<UInt32>(combination.keyCode),
                                            carbonModifiers(combination.modifierFlags), {signature, number},
                                            GetEventDispatcherTarget(), shared, &reference);
    if (status != noErr || !reference) return std::nullopt;
    keys_.emplace(number, HotKey{reference, std::move(pressed)});
    return Subscription([this, alive = std::weak_ptr(alive_), number] {
        if (alive.expired()) return;
        const auto key = keys_.extract(number);
        UnregisterEventHotKey(key.mapped().reference);
    });
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
    if (key == keys_.end()) return eventNotHandledErr;
    const auto pressed = key->second.pressed; // It may end its own registration.
    pressed();
    return noErr;
}

} // namespace quorvane
