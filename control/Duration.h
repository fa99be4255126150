#pragma once

#include <optional>
#include <string_view>

namespace quorvane {

/// The seconds of a duration as people write it: "90", "90s", "10m", "2h". None for anything else, for
/// nothing and for more than a year.
std::optional<double> secondsOfText(std::string_view text);

} // namespace quorvane
