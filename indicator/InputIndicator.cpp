#include "indicator/InputIndicator.h"

namespace quorvane {
namespace {

constexpr double marginToScreenCorner = 20; // points

} // namespace

void InputIndicator::setUpWindow() {
    interface_.inputIconWindow.setStyle({.styleMask = 0,
                                         .isOpaque = false,
                                         .hasClearBackground = true,
                                         .collectionBehavior = 1,
                                         .level = 1000,
                                         .isMovableByWindowBackground = true});
}

void InputIndicator::showInitialState() {
    stateTip_.inputChnagedNotification();
    if (!stateTip_.isEnabled()) return;
    const auto mainScreen = screens_.mainScreen();
    const auto frame = mainScreen ? mainScreen->frame : Rect{};
    interface_.inputIconWindow.setFrameOrigin(
        {frame.x + frame.width - marginToScreenCorner, frame.y + frame.height - marginToScreenCorner});
}

} // namespace quorvane
