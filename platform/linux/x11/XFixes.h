#pragma once

#include <cstdint>
#include <optional>

#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Makes the requests of the XFixes extension allowed on the connection, and returns the number of its first
/// event. None when the server has no such extension: then none of its requests may be made, since already
/// the attempt would break the connection. Costs a round trip the first time.
std::optional<std::uint8_t> useXFixes(XConnection& x);

} // namespace quorvane
