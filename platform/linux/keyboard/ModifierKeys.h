#pragma once

#include <array>
#include <bitset>
#include <cstdint>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Which modifier keys are held down, as the program's modifier flags.
///
/// What a key is comes from its keysym in the first group without modifiers: Shift_L and Shift_R are shift,
/// Alt is option, Super and Meta are command, ISO_Level3_Shift (AltGr) is the right option. Whether it is
/// held is followed key by key, because asking the server would miss a key that was tapped quickly.
class ModifierKeys {
public:
    /// Looks at the keys held now: whatever happened before was not seen.
    void start(XConnection& x);

    /// The keyboard's map has changed; it is read when the next key comes.
    void mapChanged() { isMapKnown_ = false; }

    /// Takes a key's movement. False when the key is no modifier. A release without a press, and a second
    /// press or release, change nothing.
    bool take(XConnection& x, std::uint32_t keycode, bool isDown);

    /// Asks the server whether Caps Lock is on, one round trip.
    std::uint64_t flags(XConnection& x) const;

private:
    void readMap(XConnection& x);

    static constexpr std::size_t keycodes = 256;
    std::array<std::uint64_t, keycodes> flagsOf_{}; ///< 0: no modifier.
    std::bitset<keycodes> isDown_;
    bool isMapKnown_ = false;
};

} // namespace quorvane
