#pragma once

#include <cstdint>
#include <optional>

namespace quorvane {

/// Which bits of a keyboard's modifier state stand for which of the program's modifiers, as the keyboard is
/// mapped at one moment. Shift, Control and Caps Lock have the same ones on every keyboard.
struct ModifierBits {
    static constexpr std::uint16_t shift = 1U << 0;
    static constexpr std::uint16_t capsLock = 1U << 1;
    static constexpr std::uint16_t control = 1U << 2;

    std::uint16_t option = 0;  ///< Carries Alt_L or Alt_R; 0: no bit. AltGr, which types, is none.
    std::uint16_t command = 0; ///< Carries Super_L or Super_R; 0: no bit.
    std::uint16_t numLock = 0;

    bool operator==(const ModifierBits&) const = default;

    /// The state while these modifiers, and no others, are held. Command, control, option and shift count.
    /// None when the keyboard lacks one of them.
    std::optional<std::uint16_t> stateOf(std::uint64_t modifierFlags) const;
};

} // namespace quorvane
