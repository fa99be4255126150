#pragma once

#include <string>

namespace quorvane {

/// Where the user's session bus can be reached; empty when there is none.
std::string sessionBusAddress();

} // namespace quorvane
