#pragma once

#include <QWidget>

#include "platform/Subscription.h"

namespace quorvane {

/// What the program's own windows ask of the session, beyond what the toolkit does.
class WindowHost {
public:
    virtual ~WindowHost() = default;

    /// Has the window where the user is, whatever became of it: on the workspace that is shown, not
    /// minimised, above the others and with the focus. A window that is on all workspaces stays on them.
    virtual void bringToUser(QWidget& window) = 0;

    /// Every key goes to the widget, which has the focus, whoever else has a hot key: as long as what is
    /// returned lives. Sessions may refuse.
    virtual Subscription takeKeyboard(QWidget& widget) = 0;

    // For a window that is on the screen; sessions may refuse.
    virtual void keepAboveOthers(QWidget& window, bool above) = 0;
    virtual void showOnAllDesktops(QWidget& window, bool all) = 0; ///< False: on the one shown now.
};

} // namespace quorvane
