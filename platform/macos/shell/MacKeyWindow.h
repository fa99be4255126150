#pragma once

#include "platform/macos/shell/MacWindow.h"

namespace quorvane {

/// The window that is ordered in and out so that a new input source reaches the program in front. For an
/// input method the system changes the icon at once, but the program goes on with the old one until the
/// keyboard focus comes to it anew. So this window takes the focus for a moment: unseen, and without making
/// this program the active one, which would be a switch of applications to everybody.
class MacKeyWindow : public MacWindow {
public:
    explicit MacKeyWindow(NotificationCenter& notifications);

    void makeKeyAndOrderFront() override;
};

} // namespace quorvane
