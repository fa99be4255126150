#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

inline constexpr auto defaultsUsage =
    "usage: quorvanectl defaults domains\n"
    "       quorvanectl defaults read DOMAIN [KEY]\n"
    "       quorvanectl defaults write DOMAIN KEY TYPE VALUE\n"
    "       quorvanectl defaults delete DOMAIN KEY\n"
    "       quorvanectl defaults dict-add DOMAIN KEY ENTRY TYPE VALUE\n"
    "       quorvanectl defaults dict-remove DOMAIN KEY ENTRY\n"
    "DOMAIN is a name, `standard` or `shared`; TYPE is -bool, -int, -string or -xml.\n";

/// Reads and changes settings files as they are, also while the program runs. The exit status; none when the
/// arguments make no command.
std::optional<int> runDefaults(const std::vector<std::string>& arguments);

} // namespace quorvane
