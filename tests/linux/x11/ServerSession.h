#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "linux/support/TestWindow.h"
#include "platform/linux/session/SessionApplications.h"
#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/applications/X11Applications.h"
#include "platform/linux/x11/applications/X11Launchers.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XClient.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {

/// A user's session for one test: a server of its own, a window manager and what the program makes of it.
struct ServerSession {
    explicit ServerSession(const QString& windowManager = "openbox") : manager(windowManager) {}

    ScratchFolders folders;
    XServer server;
    std::optional<WindowManager> manager;
    XClient user;
    std::unique_ptr<XConnection> x = XConnection::open();
    DesktopEntries entries = DesktopEntries::ofEnvironment();
    SessionApplications known{entries, nullptr};
    SessionWorkspace& workspace = known.workspace;
    X11WindowOwners owners{*x, known.owners};
    X11Launchers launchers{*x, known.launchers};
    X11Applications applications{*x, owners, workspace};

    /// Has the program see everything that has happened on the server so far.
    void handleWhatHappened() {
        const XcbReply<xcb_get_input_focus_reply_t> roundTrip(
            xcb_get_input_focus_reply(x->xcb(), xcb_get_input_focus(x->xcb()), nullptr));
        waitUntil([hasRun = false]() mutable { return std::exchange(hasRun, true); }); // Until it sleeps.
    }

    /// The id of the application in front; empty when there is none.
    std::string front() const {
        const auto application = workspace.frontmostApplication();
        return application ? *application->bundleIdentifier : std::string();
    }
    bool waitForFront(const std::string& id) const {
        return waitUntil([&] { return front() == id; });
    }
};

} // namespace quorvane
