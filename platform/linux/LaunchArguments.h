#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quorvane {

// What a new process of the program is told on its command line.
namespace launch_argument {

/// By the instance that it replaces: wait for that one to end, instead of asking it to reopen.
inline constexpr const char* newInstance = "--new-instance";

/// By the instance that it replaces: the user has paused switching. Until when, in seconds since 1970, stands
/// behind it; 0: until somebody resumes.
inline constexpr const char* pausedUntil = "--paused-until=";

/// By the session, at login: leave when an instance runs already, and do not ask it to reopen.
inline constexpr const char* atLogin = "--at-login";

/// By itself, when the Wayland compositor has died: wait for its successor, and begin as at login.
inline constexpr const char* afterCompositor = "--after-compositor";

/// By a menu: open the window, whether an instance runs already or not.
inline constexpr const char* preferences = "--preferences";

/// By the user: tell what this desktop answers, change nothing, and end.
inline constexpr const char* selfCheck = "--self-check";

/// By the user: answer and end, before anything is touched.
inline constexpr const char* help = "--help";
inline constexpr const char* version = "--version";

} // namespace launch_argument

struct LaunchArguments {
    /// The arguments without the program's own name.
    explicit LaunchArguments(std::span<const char* const> arguments);

    bool isNewInstance = false;
    std::optional<double> pausedUntil;
    bool isAtLogin = false;
    bool isAfterCompositor = false;
    bool opensPreferences = false;
    bool asksForSelfCheck = false;
    bool asksForHelp = false;
    bool asksForVersion = false;
    std::string unknown; ///< The first one that means nothing here; empty when there is none.
};

/// What the user is told who asks for help.
extern const char* const usage;

} // namespace quorvane
