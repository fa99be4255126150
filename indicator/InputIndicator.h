#pragma once

#include <string_view>
#include <utility>

#include "input/OpenLaunchers.h"
#include "input/StateTip.h"
#include "platform/Cursor.h"
#include "platform/DistributedNotificationCenter.h"
#include "platform/InterfaceFiles.h"
#include "platform/OnScreenWindowList.h"
#include "platform/PropertyList.h"
#include "platform/Screens.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

namespace quorvane {

/// The floating window that shows the current input source, and follows the front window if the user wants.
class InputIndicator {
public:
    /// The window stays where it is while one of the launchers is open.
    InputIndicator(const MainInterface& interface, const Screens& screens,
                   const OnScreenWindowList& windowList, const Workspace& workspace, const Cursor& cursor,
                   const UserDefaults& standard, const OpenLaunchers& openLaunchers, StateTip& stateTip)
        : interface_(interface)
        , screens_(screens)
        , windowList_(windowList)
        , workspace_(workspace)
        , cursor_(cursor)
        , standard_(standard)
        , openLaunchers_(openLaunchers)
        , stateTip_(stateTip) {}

    /// A clear, borderless window above everything, on all spaces, moved by its background.
    void setUpWindow();

    /// Shows the current icon at the main screen's top-right corner if the user wants the indicator, else
    /// hides it. Orders the window neither in nor out.
    void showInitialState();

    /// Looks where the front application's window is, and goes there.
    void checkFollowWindow();

    /// Goes to the followed window as it was last seen.
    void adjustIconView();

    /// The window to follow from now on, by its bounds: see `boundsDictionary`. Moves nothing yet.
    void setFollowedWindowBounds(PropertyList bounds) { followedWindowBounds_ = std::move(bounds); }

    /// The bounds of the application's frontmost window that is large enough to be worked in; nothing when
    /// it has none. The name is the application's localized one. Windows whose title the desktop withholds
    /// count, those with an empty one do not.
    PropertyList getFrameOfFirstWindow(std::string_view applicationName) const;

    /// Another program reports where the front window is.
    void windowAdjusted(const DistributedNotification& notification);

    /// Whether the mouse cursor is the one for text.
    bool isTextCursor() const;

    bool followsWindows() const;

    /// It follows windows and is shown.
    bool isFollowing() const;

private:
    MainInterface interface_;
    const Screens& screens_;
    const OnScreenWindowList& windowList_;
    const Workspace& workspace_;
    const Cursor& cursor_;
    const UserDefaults& standard_;
    const OpenLaunchers& openLaunchers_;
    StateTip& stateTip_;

    PropertyList followedWindowBounds_; ///< Nothing: there is no window to follow.
};

} // namespace quorvane
