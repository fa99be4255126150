#pragma once

#include "platform/linux/keyboard/LayoutInputSources.h"
#include "platform/linux/session/Session.h"
#include "platform/linux/x11/applications/X11Applications.h"
#include "platform/linux/x11/applications/X11Launchers.h"
#include "platform/linux/x11/keyboard/X11EventMonitor.h"
#include "platform/linux/x11/keyboard/X11HotKeys.h"
#include "platform/linux/x11/keyboard/X11PrintedKeyboard.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"
#include "platform/linux/x11/windows/X11Cursor.h"
#include "platform/linux/x11/windows/X11Indicator.h"
#include "platform/linux/x11/windows/X11Screens.h"
#include "platform/linux/x11/windows/X11WindowHost.h"
#include "platform/linux/x11/windows/X11WindowList.h"

namespace quorvane {

/// A session of the X server: everything is one connection's.
class X11Session : public Session {
public:
    /// Needs a QApplication. Both must outlive this object. `drawIcon` makes the template icon of a layout
    /// out of two letters. `notice` is what the user of this session should know.
    X11Session(XConnection& x, SessionApplications& applications, LayoutInputSources::DrawIcon drawIcon,
               std::string notice = {});

    SessionParts parts() override;

private:
    XConnection& x_;
    std::string notice_;
    X11WindowOwners owners_; ///< Each of these sees an event before those below it.
    X11Launchers launchers_;
    X11Applications applications_;
    X11Screens screens_;
    X11WindowList windowList_;
    X11EventMonitor globalEvents_;
    X11HotKeys hotKeys_;
    X11Cursor cursor_;
    XkbKeyboard keyboard_;
    LayoutInputSources layouts_;
    X11PrintedKeyboard printedKeyboard_;
    X11Indicator indicator_;
    X11WindowHost windowHost_;
};

} // namespace quorvane
