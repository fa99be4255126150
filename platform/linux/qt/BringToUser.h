#pragma once

#include <QWidget>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Has the window where the user is, whatever became of it: on the workspace that is shown, not minimised,
/// above the others and with the focus. A window that is on all workspaces stays on them.
void bringToUser(XConnection& x, QWidget& window);

} // namespace quorvane
