#pragma once

#include <QIcon>

namespace quorvane {

/// The program's icon: what the desktop's icon theme has under the program's name, where it is installed;
/// else the one that is given. Panels are told the name and may show another picture of it.
QIcon programIcon(const QIcon& builtIn);

} // namespace quorvane
