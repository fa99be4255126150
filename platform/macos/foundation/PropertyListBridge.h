#pragma once

#include <string>
#include <string_view>

#include "platform/PropertyList.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

// Foundation's property-list objects and the program's values. What comes in was often made by other
// programs, so every type is looked at. An object that comes out is never what it must not be: it is nil
// instead.

/// Nil when the text is not UTF-8.
NSString* _Nullable toNSString(std::string_view text);

/// The same for the user's eyes: empty when the text is not UTF-8.
NSString* _Nonnull shownText(std::string_view text);

/// Empty for nil, and for a string with halves of surrogate pairs in it.
std::string fromNSString(NSString* _Nullable text);

/// Nil for nothing and for text that is not UTF-8; entries of containers that would be nil are left out.
id _Nullable toNSObject(const PropertyList& value);

/// Nothing for nil and for objects that do not belong into property lists; containers leave them out.
PropertyList fromNSObject(id _Nullable object);

} // namespace quorvane
