#pragma once

#include <cstdint>
#include <optional>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Which bits of the modifier state of X stand for which of the program's modifiers, as the keyboard is
/// mapped at one moment.
struct ModifierBits {
    std::uint16_t option = 0;  ///< Carries Alt_L or Alt_R; 0: no bit. AltGr, which types, is none.
    std::uint16_t command = 0; ///< Carries Super_L or Super_R; 0: no bit.
    std::uint16_t numLock = 0;

    bool operator==(const ModifierBits&) const = default;

    /// Asks the server, one round trip. None when it does not answer.
    static std::optional<ModifierBits> read(XConnection& x);

    /// The state while these modifiers, and no others, are held. Command, control, option and shift count.
    /// None when the keyboard lacks one of them.
    std::optional<std::uint16_t> stateOf(std::uint64_t modifierFlags) const;
};

/// Has the server tell of every change of the keyboard's map, by events that `isKeyboardMapEvent` knows.
/// False when there is no XKB, without which it tells all the same.
bool selectKeyboardMapEvents(XConnection& x);
bool isKeyboardMapEvent(XConnection& x, const xcb_generic_event_t& event);

} // namespace quorvane
