#pragma once

#include <cstdint>
#include <functional>

#include "platform/Subscription.h"

namespace quorvane {

enum class EventType { leftMouseUp = 2, flagsChanged = 12 };

using EventMask = std::uint64_t;
constexpr EventMask eventMask(EventType type) {
    return EventMask{1} << static_cast<int>(type);
}

/// The modifier bits of an event.
namespace ModifierFlag {
inline constexpr std::uint64_t capsLock = 0x10000;
inline constexpr std::uint64_t shift = 0x20000;
inline constexpr std::uint64_t control = 0x40000;
inline constexpr std::uint64_t option = 0x80000;
inline constexpr std::uint64_t command = 0x100000;
inline constexpr std::uint64_t function = 0x800000;

/// Set in every event of a real keyboard.
inline constexpr std::uint64_t nonCoalesced = 0x100;

// Which of two like keys is held. Not every desktop tells.
inline constexpr std::uint64_t leftControl = 0x1;
inline constexpr std::uint64_t leftShift = 0x2;
inline constexpr std::uint64_t rightShift = 0x4;
inline constexpr std::uint64_t leftCommand = 0x8;
inline constexpr std::uint64_t rightCommand = 0x10;
inline constexpr std::uint64_t leftOption = 0x20;
inline constexpr std::uint64_t rightOption = 0x40;
inline constexpr std::uint64_t rightControl = 0x2000;
} // namespace ModifierFlag

struct Event {
    EventType type = EventType::leftMouseUp;
    std::uint64_t modifierFlags = 0;
    double timestamp = 0; ///< Seconds since the computer was started.
};

/// Mouse and modifier events on their way to other programs. They can be watched, not changed.
class GlobalEventMonitor {
public:
    virtual ~GlobalEventMonitor() = default;

    /// Calls the handler, from the run loop, with every event whose type is in the mask. Nothing is watched
    /// while nobody asks.
    virtual Subscription addGlobalMonitor(EventMask mask, std::function<void(const Event&)> handler) = 0;
};

} // namespace quorvane
