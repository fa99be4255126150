#include "platform/linux/LaunchArguments.h"

#include <map>

namespace quorvane {

LaunchArguments::LaunchArguments(std::span<const char* const> arguments) {
    const std::map<std::string_view, bool*> known{{launch_argument::newInstance, &isNewInstance},
                                                  {launch_argument::atLogin, &isAtLogin},
                                                  {launch_argument::preferences, &opensPreferences},
                                                  {launch_argument::help, &asksForHelp},
                                                  {launch_argument::version, &asksForVersion}};
    for (const std::string_view argument : arguments) {
        if (const auto found = known.find(argument); found != known.end())
            *found->second = true;
        else if (unknown.empty())
            unknown = argument;
    }
}

const char* const usage = R"(usage: quorvane [--preferences | --at-login | --new-instance]
       quorvane --help | --version

Gives every program the keyboard input source it needs: a background program with an item in the tray.

  --preferences   open the window, whether it runs already or not
  --at-login      leave without opening the window when it runs already
  --new-instance  wait for the one that runs to end, and take its place
  --help          print this
  --version       print the version

Launched once more while it runs, it opens its window. See also: man quorvane, man quorvanectl.
)";

} // namespace quorvane
