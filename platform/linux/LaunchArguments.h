#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quorvane {

// What a new process of the program is told on its command line.
namespace launch_argument {

/// By the instance that it replaces: wait for that one to end, instead of asking it to reopen.
inline constexpr const char* newInstance = "--new-instance";

/// By the session, at login: leave when an instance runs already, and do not ask it to reopen.
inline constexpr const char* atLogin = "--at-login";

} // namespace launch_argument

struct LaunchArguments {
    /// The arguments without the program's own name.
    explicit LaunchArguments(std::span<const char* const> arguments);

    bool isNewInstance = false;
    bool isAtLogin = false;
    std::string unknown; ///< The first one that means nothing here; empty when there is none.
};

} // namespace quorvane
