#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/Desktop.h"

namespace quorvane {

/// Takes one fact: what it is about, and what was found.
using TellFact = std::function<void(std::string_view name, const std::string& fact)>;

/// Asks each port that can be asked without anybody noticing, and tells each answer as soon as it is there:
/// should a port never answer, what was told last shows which. What windows are called and which sources
/// rules name stays private.
void askPorts(Desktop& desktop, const TellFact& tell);

} // namespace quorvane
