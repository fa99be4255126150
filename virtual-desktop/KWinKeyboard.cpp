#include "virtual-desktop/KWinKeyboard.h"

#include "kwin-fake-input-client-protocol.h"

namespace quorvane {

KWinKeyboard::KWinKeyboard()
    : input_(client_.bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, 4)) {
    org_kde_kwin_fake_input_authenticate(input_, "virtual desktop", "presses keys for somebody");
    client_.roundTrip();
}

void KWinKeyboard::send(std::uint8_t keycode, bool isPressed) {
    constexpr unsigned firstKeycode = 8; // of the hardware's numbers; the protocol's begin with 0
    org_kde_kwin_fake_input_keyboard_key(input_, keycode - firstKeycode, isPressed);
    client_.roundTrip();
}

} // namespace quorvane
