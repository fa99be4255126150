#pragma once

#include <QString>

namespace quorvane {

/// What the user of a Wayland session that offers no way should know, in their language.
QString waylandNotice();

} // namespace quorvane
