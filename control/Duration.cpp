#include "control/Duration.h"

#include <charconv>

namespace quorvane {

std::optional<double> secondsOfText(std::string_view text) {
    constexpr double minute = 60, hour = 60 * minute, year = 366 * 24 * hour;
    double unit = 1;
    if (text.ends_with('h')) unit = hour;
    if (text.ends_with('m')) unit = minute;
    if (text.find_last_of("hms") + 1 == text.size()) text.remove_suffix(text.empty() ? 0 : 1);
    int number = 0;
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    const double seconds = unit * number;
    const bool isDuration = read.ec == std::errc() && read.ptr == end && seconds > 0 && seconds <= year;
    return isDuration ? std::optional(seconds) : std::nullopt;
}

} // namespace quorvane
