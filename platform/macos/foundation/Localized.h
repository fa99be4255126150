#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {

/// The text in the user's language; the key itself, which is the English text, when it has none. The key is a
/// literal, since the tables are kept complete by reading the sources.
NSString* _Nonnull localized(NSString* _Nonnull key);

} // namespace quorvane
