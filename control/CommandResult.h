#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/PropertyList.h"

namespace quorvane {

/// How a command went. The numbers are the exit statuses of the command-line tool.
enum class CommandStatus {
    done = 0,
    failed = 1,  ///< It was understood and could not be done.
    misused = 2, ///< It was not understood, or a name in it is unknown or ambiguous.
    noAgent = 3, ///< The running program is needed for it, and does not run.
};

struct CommandRequest {
    std::vector<std::string> arguments; ///< Behind the command's own name.
    PropertyList document;              ///< What it works on, where it works on something; see `import`.
};

/// What a command says. A failure has its reason under "error", and what an ambiguous name may mean under
/// "candidates".
struct CommandResult {
    CommandStatus status = CommandStatus::done;
    PropertyList document;
};

inline CommandResult commandFailure(CommandStatus status, std::string reason) {
    return {status, PropertyList::Dictionary{{"error", std::move(reason)}}};
}

inline CommandResult commandMisuse(std::string reason) {
    return commandFailure(CommandStatus::misused, std::move(reason));
}

} // namespace quorvane
