#pragma once

#include "platform/Geometry.h"
#include "platform/PropertyList.h"

namespace quorvane {

/// A window's bounds as they travel between programs: a dictionary of the numbers "X", "Y", "Width" and
/// "Height", in points, origin at the top-left of the primary screen.
PropertyList boundsDictionary(const Rect& bounds);

/// Where the indicator's bottom-left corner belongs, from the primary screen's one: in the top-right corner
/// of the window with these bounds, but never further right than the main screen's edge. Bounds may come from
/// other programs: whatever in them is missing or no number counts as 0, so that without any the indicator
/// stands at the top-left of the screen, mostly outside of it; and none of them moves it out of every window
/// system's reach.
Point indicatorOrigin(const PropertyList& followedBounds, const Rect& mainScreen, const Rect& deepestScreen);

} // namespace quorvane
