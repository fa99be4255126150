#pragma once

#include "virtual-desktop/ProgramSession.h"
#include "virtual-desktop/TextCommand.h"

namespace quorvane {

/// A real program that somebody types into, in the way of its toolkit.
class TextProgram {
public:
    using Toolkit = TextCommand::Toolkit;

    /// Its window is in front when this returns.
    TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass);

    xcb_window_t window(); ///< None when it is gone.
    bool activate();       ///< Waits until its window is in front.

    bool waitUntilShown(); ///< It takes keys then. Programs of GTK do not tell.

    /// The text it has got so far, without spaces. Programs of GTK tell at the end of the line, and leave.
    QString typed();

private:
    TextProgram(ProgramSession& session, Toolkit toolkit, const QString& wmClass, const TextCommand& command);

    bool isInFront() { return window() != XCB_WINDOW_NONE && session_.activeWindow() == window(); }

    ProgramSession& session_;
    Toolkit toolkit_;
    QString wmClass_;
    RunningProgram program_;
};

} // namespace quorvane
