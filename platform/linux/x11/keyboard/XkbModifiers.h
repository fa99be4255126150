#pragma once

#include <cstdint>
#include <optional>

#include "platform/Signal.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/keyboard/KeyboardMap.h"

namespace quorvane {

/// The modifiers that are held, and Caps Lock, as the program's modifier flags.
///
/// The server tells the state of its keyboard, not of the keys: which of two like keys is held stays unknown,
/// and no other key is ever told.
class XkbModifiers {
public:
    explicit XkbModifiers(XConnection& x);

    /// Watches from now on, or no longer. False when the server has no XKB, which would tell.
    bool watch(bool isOn);

    /// As last told.
    std::uint64_t flags() const { return flags_; }

    /// The flags have changed, at that time of the server.
    Signal<std::uint32_t> changed;

private:
    void handle(const xcb_generic_event_t& event);
    void take(std::uint8_t held, std::uint8_t locked);

    XConnection& x_;
    std::uint8_t firstEvent_ = 0;      ///< 0: nothing is watched.
    std::optional<ModifierBits> bits_; ///< None when they must be read again.
    std::uint64_t flags_ = 0;
    Subscription events_;
};

} // namespace quorvane
