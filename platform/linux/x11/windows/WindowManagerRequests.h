#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

// What a program asks the window manager for. Managers may refuse, and there may be none.

/// A message about a window, as EWMH and ICCCM define them: its name and its first two numbers. It goes out
/// with the connection's next flush.
void askWindowManager(XConnection& x, xcb_window_t window, std::string_view message, std::uint32_t first,
                      std::uint32_t second = 0);

/// The same by another connection, such as the toolkit's, in order with what else it asks for.
void askWindowManager(xcb_connection_t* sender, XConnection& x, xcb_window_t window, std::string_view message,
                      std::uint32_t first, std::uint32_t second);

/// None where the window manager has none.
std::optional<std::uint32_t> shownDesktop(XConnection& x);

/// Whether the window is on every desktop.
bool isOnAllDesktops(XConnection& x, xcb_window_t window);

/// Who asks, in messages that say so: something like a task bar, by which the user means it.
inline constexpr std::uint32_t sourceIsUser = 2;

// For a window that is on the screen:
void keepAboveOthers(XConnection& x, xcb_window_t window, bool above);
void showOnAllDesktops(XConnection& x, xcb_window_t window, bool all); ///< False: on the one shown now.

} // namespace quorvane
