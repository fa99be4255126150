#pragma once

#include "platform/CellView.h"

namespace quorvane {

/// Where a part stands in a cell of this size: inside of it, whatever its frame says. Texts, menus, recorders
/// and boxes use the width from their left edge on.
Rect placeIn(const Size& cell, const CellPart& part);

} // namespace quorvane
