#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Cursor.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/HotKeys.h"
#include "platform/OnScreenWindowList.h"
#include "platform/Screens.h"
#include "platform/SwitchingAhead.h"
#include "platform/linux/keyboard/LayoutSources.h"
#include "platform/linux/keyboard/PrintedKeyboard.h"
#include "platform/linux/qt/IndicatorSurface.h"
#include "platform/linux/qt/WindowHost.h"
#include "platform/linux/session/SessionApplications.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

class ShellExtension;

/// What differs between the sessions that a Linux desktop can be. It lives as long as its session does.
struct SessionParts {
    std::string name; ///< Of what has the keyboard's layouts: "X11".
    LayoutSources& layouts;
    bool hasIBusEngines = false; ///< The engines of IBus are among those, and nobody else may select one.
    HotKeys& hotKeys;
    OnScreenWindowList& windowList;
    Screens& screens;
    GlobalEventMonitor& globalEvents;
    Cursor& cursor;
    IndicatorSurface& indicator;
    WindowHost& windowHost;
    PrintedKeyboard& printedKeyboard;
    SwitchingAhead* switchingAhead = nullptr; ///< Null where only this program switches.
    ShellExtension* shellExtension = nullptr; ///< Null where the session needs none.
    XConnection* x = nullptr;                 ///< Null where there is no X server.
    std::string notice; ///< What its user should know, in their language; empty: nothing.
};

/// A session: X11's, or that of one Wayland compositor. From its beginning it tells of windows, and what it
/// tells of applications is the same for all of them.
class Session {
public:
    virtual ~Session() = default;

    /// Valid as long as this object.
    virtual SessionParts parts() = 0;
};

/// Makes the session there is. The applications outlive it.
using SessionStart = std::function<std::unique_ptr<Session>(SessionApplications& applications)>;

} // namespace quorvane
