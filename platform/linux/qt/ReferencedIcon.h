#pragma once

#include <string>

#include "platform/Image.h"

namespace quorvane {

/// The icon at a path, or of a name in the desktop's icon theme, 18 by 18 points at most; null when there is
/// none.
ImageRef referencedIcon(const std::string& reference);

} // namespace quorvane
