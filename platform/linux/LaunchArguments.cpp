#include "platform/linux/LaunchArguments.h"

namespace quorvane {

LaunchArguments::LaunchArguments(std::span<const char* const> arguments) {
    for (const std::string_view argument : arguments) {
        if (argument == launch_argument::newInstance)
            isNewInstance = true;
        else if (argument == launch_argument::atLogin)
            isAtLogin = true;
        else if (unknown.empty())
            unknown = argument;
    }
}

} // namespace quorvane
