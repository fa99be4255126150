#pragma once

#include "platform/Image.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// The picture as a template, whose colour is chosen where it is drawn; nil for null.
NSImage* templateOf(const ImageRef& image);

/// The same for a picture of which only the shape counts, and any other picture as it is.
NSImage* adapting(const ImageRef& image);

} // namespace quorvane
