#pragma once

#include <vector>

#include <QWidget>

namespace quorvane {

/// The program's windows that are open, minimised or not: not its menus, its indicator or its tray item.
std::vector<QWidget*> openWindows();

/// The program's window that the user works in: the active one, or else one that is open. Null when there is
/// none.
QWidget* mainWindow();

} // namespace quorvane
