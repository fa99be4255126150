#pragma once

#include <QWidget>

namespace quorvane {

/// The program's window that the user works in: the active one, or else one that is open. Null when there is
/// none.
QWidget* mainWindow();

} // namespace quorvane
