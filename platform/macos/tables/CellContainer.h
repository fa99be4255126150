#pragma once

#include "platform/Geometry.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

NSRect rectOf(const Rect& frame);

/// The view of a cell, in which its parts are put where their frames say. Without a frame it is an image view
/// that has no image. The table gives it the size of the column: what of a part is outside is not seen.
NSView* _Nonnull makeContainer(const Rect& frame);

} // namespace quorvane
