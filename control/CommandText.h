#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "control/CommandResult.h"

namespace quorvane {

struct TextStyle {
    bool isAligned = true;                       ///< Columns for the eye; otherwise with tabs between them.
    std::function<std::string(double)> timeText; ///< A time of day, for seconds since 1970.
};

/// What a command's result is in words, each line ended; empty where nothing is to be said. A failure is its
/// reason, and the candidates below it.
std::string textOfResult(std::string_view command, const CommandResult& result, const TextStyle& style);

/// One decision, as `AgentCommands::decided` tells it, on one line.
std::string textOfDecision(const PropertyList& decision, const TextStyle& style);

} // namespace quorvane
