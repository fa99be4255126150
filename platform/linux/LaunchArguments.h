#pragma once

// What a new process of the program is told on its command line.

namespace quorvane::launch_argument {

/// By the instance that it replaces: wait for that one to end, instead of asking it to reopen.
inline constexpr const char* newInstance = "--new-instance";

/// By the session, at login: leave when an instance runs already, and do not ask it to reopen.
inline constexpr const char* atLogin = "--at-login";

} // namespace quorvane::launch_argument
