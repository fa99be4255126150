#pragma once

#include "virtual-desktop/WaylandClient.h"

struct org_kde_kwin_fake_input;

namespace quorvane {

/// The keyboard of KWin's seat, pressed by a program that its desktop file allows to do so.
class KWinKeyboard {
public:
    KWinKeyboard();

    void send(std::uint8_t keycode, bool isPressed); ///< By the number of the hardware.

private:
    WaylandClient client_;
    org_kde_kwin_fake_input* input_; ///< Goes with the connection.
};

} // namespace quorvane
