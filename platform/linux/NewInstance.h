#pragma once

namespace quorvane {

/// Told to a new process by the one it replaces: wait for that one to end, instead of asking it to reopen.
inline constexpr const char* newInstanceArgument = "--new-instance";

} // namespace quorvane
