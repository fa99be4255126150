#pragma once

#include <string>

#include "platform/Image.h"

namespace quorvane {

/// The icon at a path, or of a name in the desktop's icon theme, 18 by 18 points at most; null when there is
/// none. A shape in one grey comes in black, as template images are.
ImageRef referencedIcon(const std::string& reference);

} // namespace quorvane
