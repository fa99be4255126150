#pragma once

#include <optional>
#include <string>

#include "control/CommandResult.h"

namespace quorvane {

/// Does a command by the settings files alone, while the program does not run. None for commands that need
/// it. What is set counts when the program starts.
std::optional<CommandResult> runWithoutAgent(const std::string& command, const CommandRequest& request);

} // namespace quorvane
