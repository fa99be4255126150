#pragma once

namespace quorvane {

/// The text of windows.js, with places where the address of the object on the bus that it calls belongs:
/// `%SERVICE%`, `%PATH%` and `%INTERFACE%`.
extern const char* const windowsScript;

} // namespace quorvane
