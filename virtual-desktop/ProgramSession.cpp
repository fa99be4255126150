#include "virtual-desktop/ProgramSession.h"

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

bool ProgramSession::waitForGroup(unsigned wanted) {
    return waitUntil([&] { return group() == wanted; });
}

xcb_window_t ProgramSession::activeWindow() {
    const auto windows = user.values(user.root(), "_NET_ACTIVE_WINDOW");
    return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

void ProgramSession::type(std::initializer_list<std::uint8_t> keycodes) {
    for (const auto keycode : keycodes)
        user.pressTogether({keycode});
}

} // namespace quorvane
