#include "indicator/InputIndicator.h"

#include <algorithm>

#include "indicator/IndicatorPlacement.h"
#include "input/CompanionMessages.h"
#include "settings/Keys.h"

namespace quorvane {
namespace {

constexpr double marginToScreenCorner = 20; // points
constexpr float smallestSide = 200;         // points: one side of a followed window is longer
constexpr int normalLayer = 0;
constexpr Point hotSpotOfTextCursor{4, 9};

Rect frameOf(const std::optional<Screen>& screen) {
    return screen ? screen->frame : Rect{};
}

bool isToBeFollowed(const WindowDescription& window) {
    const bool isLarge = static_cast<float>(window.bounds.width) > smallestSide ||
                         static_cast<float>(window.bounds.height) > smallestSide;
    return window.name != "" && window.isOnScreen && window.layer == normalLayer && isLarge;
}

/// The name of the application in front; empty for one without a bundle identifier.
std::string frontmostName(const Workspace& workspace) {
    const auto frontmost = workspace.frontmostApplication();
    return frontmost && frontmost->bundleIdentifier ? frontmost->localizedName : std::string();
}

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
    const auto frame = frameOf(screens_.mainScreen());
    interface_.inputIconWindow.setFrameOrigin(
        {frame.x + frame.width - marginToScreenCorner, frame.y + frame.height - marginToScreenCorner});
}

void InputIndicator::checkFollowWindow() {
    if (!isFollowing() || openLaunchers_.any()) return;
    setFollowedWindowBounds(getFrameOfFirstWindow(frontmostName(workspace_)));
    adjustIconView();
}

void InputIndicator::adjustIconView() {
    interface_.inputIconWindow.setFrameOrigin(indicatorOrigin(
        followedWindowBounds_, frameOf(screens_.mainScreen()), frameOf(screens_.deepestScreen())));
}

PropertyList InputIndicator::getFrameOfFirstWindow(std::string_view applicationName) const {
    const auto windows = windowList_.windows();
    const auto found = std::ranges::find_if(windows, [&](const WindowDescription& window) {
        return window.ownerName == applicationName && isToBeFollowed(window);
    });
    return found == windows.end() ? PropertyList() : boundsDictionary(found->bounds);
}

void InputIndicator::windowAdjusted(const DistributedNotification& notification) {
    if (notification.name != message::windowAdjusted || !isFollowing()) return;
    setFollowedWindowBounds(notification.userInfo);
    adjustIconView();
}

bool InputIndicator::isTextCursor() const {
    return cursor_.hotSpot() == hotSpotOfTextCursor;
}

bool InputIndicator::followsWindows() const {
    return standard_.boolForKey(key::followWindow);
}

bool InputIndicator::isFollowing() const {
    return followsWindows() && stateTip_.isEnabled();
}

} // namespace quorvane
