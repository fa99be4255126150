#pragma once

#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Signal.h"
#include "platform/Workspace.h"
#include "platform/linux/applications/ApplicationIdentities.h"
#include "platform/linux/applications/BackgroundApplications.h"
#include "platform/linux/applications/WindowInFront.h"
#include "platform/linux/applications/WindowedApplications.h"
#include "platform/linux/applications/X11Launchers.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The applications on an X11 desktop, as its window manager tells of them (EWMH). Which one is in front is
/// learnt from the X server's keyboard focus, as a rule a millisecond before the window manager tells of it
/// (WindowInFront.h). Windows of launchers make no application active: while one of them has the focus, the
/// application that was in front stays there. This process is in front while a managed window of it is, but
/// never one of the applications that run.
///
/// Without a window manager nothing happens until one appears.
class X11Workspace : public Workspace {
public:
    /// `background` may be null.
    X11Workspace(XConnection& x, ApplicationIdentities& identities, X11Launchers& launchers,
                 BackgroundApplications* background);
    X11Workspace(const X11Workspace&) = delete;
    X11Workspace& operator=(const X11Workspace&) = delete;

    std::vector<RunningApplication> runningApplications() const override;
    std::vector<RunningApplication>
    runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const override;
    std::optional<RunningApplication> frontmostApplication() const override;
    Subscription addObserver(WorkspaceNotification notification,
                             std::function<void(const RunningApplication&)> handler) override;

    /// The last window of an application that became active; none (0) when that one is closed.
    xcb_window_t activeWindow() const { return activeWindow_; }

private:
    using Posted = Signal<const RunningApplication&>;

    void readStart();
    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& change);
    void handleFocus(const xcb_focus_in_event_t& change);
    void readActiveWindow();
    void readState(xcb_window_t window);
    void readWithdrawal(xcb_window_t window);
    void identifyAgain(xcb_window_t window);
    void closed(xcb_window_t window, bool isDestroyed);
    void frontWindowMoved();
    void activate(xcb_window_t window);
    void adopt(std::span<const xcb_window_t> windows);
    void shown(xcb_window_t window);
    void assign(xcb_window_t window, const WindowOwner& owner, bool isHidden);
    bool isInFront(const std::optional<std::string>& id) const;
    bool isHidden(const std::vector<std::uint32_t>& states) const;
    RunningApplication backgroundApplication(std::string_view id) const;
    void backgroundApplicationStarted(std::string_view id);

    XConnection& x_;
    ApplicationIdentities& identities_;
    X11Launchers& launchers_;
    BackgroundApplications* background_;
    WindowedApplications applications_;
    WindowInFront inFront_;
    std::set<xcb_window_t> unshown_; ///< Managed ones, it is said, but nothing else tells so yet.
    xcb_window_t activeWindow_ = XCB_WINDOW_NONE;
    std::optional<RunningApplication> front_;
    std::optional<std::string>
        shownAgain_; ///< Of the application that was so while another one was in front.
    Posted activated_;
    Posted unhidden_;
    Posted launched_;
    Posted left_;
    Subscription events_;
    Subscription backgroundStarts_;
};

} // namespace quorvane
