#include "platform/linux/LaunchArguments.h"

#include <charconv>
#include <cstdint>
#include <map>

namespace quorvane {
namespace {

std::optional<double> timeIn(std::string_view argument) {
    const std::string_view name = launch_argument::pausedUntil;
    std::int64_t seconds = 0;
    if (!argument.starts_with(name)) return std::nullopt;
    argument.remove_prefix(name.size());
    const auto* end = argument.data() + argument.size();
    const auto read = std::from_chars(argument.data(), end, seconds);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return static_cast<double>(seconds);
}

} // namespace

LaunchArguments::LaunchArguments(std::span<const char* const> arguments) {
    const std::map<std::string_view, bool*> known{{launch_argument::newInstance, &isNewInstance},
                                                  {launch_argument::atLogin, &isAtLogin},
                                                  {launch_argument::afterCompositor, &isAfterCompositor},
                                                  {launch_argument::preferences, &opensPreferences},
                                                  {launch_argument::selfCheck, &asksForSelfCheck},
                                                  {launch_argument::help, &asksForHelp},
                                                  {launch_argument::version, &asksForVersion}};
    for (const std::string_view argument : arguments) {
        if (const auto found = known.find(argument); found != known.end())
            *found->second = true;
        else if (const auto time = timeIn(argument))
            pausedUntil = time;
        else if (unknown.empty())
            unknown = argument;
    }
}

const char* const usage = R"(usage: quorvane [--preferences | --at-login | --new-instance]
       quorvane --self-check | --help | --version

Gives every program the keyboard input source it needs: a background program with an item in the tray.

  --preferences   open the window, whether it runs already or not
  --at-login      leave without opening the window when it runs already
  --new-instance  wait for the one that runs to end, and take its place
  --self-check    look at this desktop for three seconds, print what it answers, and change nothing
  --help          print this
  --version       print the version

Launched once more while it runs, it opens its window. See also: man quorvane, man quorvanectl.
)";

} // namespace quorvane
