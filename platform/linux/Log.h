#pragma once

#include <string_view>

namespace quorvane {

/// One line on standard error, for what the user or a packager has to know. Repeating a line that was already
/// written prints nothing: a fault is told once.
void logLine(std::string_view line);

/// The same for what happened, which is told each time.
void logEvent(std::string_view line);

} // namespace quorvane
