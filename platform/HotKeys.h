#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/Signal.h"

namespace quorvane {

struct KeyCombination {
    std::int64_t keyCode = 0;        ///< The key's position on the keyboard, whatever is printed on it.
    std::uint64_t modifierFlags = 0; ///< Command, control, option and shift count, other bits do not.

    bool operator==(const KeyCombination&) const = default;
};

/// Key combinations that belong to this program, whichever program has the focus.
class HotKeys {
public:
    virtual ~HotKeys() = default;

    /// The keyboard has changed, or others have: what was refused may be granted now, and what was granted
    /// may rest. Registering it again tells.
    Signal<> changed;

    /// From now on the combination reaches no other program, and the handler is called from the run loop:
    /// once a press, however long the key is held, with Caps Lock on or off. None when it is refused:
    /// somebody has it already, this program included, or there is no such key.
    virtual std::optional<Subscription> registerHotKey(const KeyCombination& combination,
                                                       std::function<void()> pressed) = 0;
};

} // namespace quorvane
