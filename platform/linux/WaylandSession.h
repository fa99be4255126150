#pragma once

#include <QString>

namespace quorvane {

/// Whether the user's session is one of Wayland, in which windows of X11 are guests.
bool isWaylandSession();

/// What its user should know, in the user's language.
QString waylandNotice();

} // namespace quorvane
