#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/Signal.h"
#include "platform/linux/keyboard/ModifierBits.h"

namespace quorvane {

/// What the keys of one layout type without modifiers: keysyms by X keycode.
using TypedKeysyms = std::map<std::uint8_t, std::uint32_t>;

/// The keyboard as those see it who record key combinations and write them down.
class PrintedKeyboard {
public:
    virtual ~PrintedKeyboard() = default;

    /// All zero when nobody tells.
    virtual ModifierBits modifierBits() = 0;

    /// For each layout. Empty when nobody tells.
    virtual std::vector<TypedKeysyms> typedKeysyms() = 0;

    /// The modifiers that are held at this moment, in the bits above.
    virtual std::uint32_t heldState() = 0;

    Signal<> changed; ///< The first two may answer differently now.
};

} // namespace quorvane
