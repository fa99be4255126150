#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/macos/Apple.h"
#include "platform/macos/CFRef.h"

namespace quorvane {

// What Core Foundation's values are in C++. They come from other programs: null, or a value of another type
// than expected, reads as nothing.

/// In UTF-8. Nothing for a string with halves of surrogate pairs in it, too.
std::optional<std::string> stringOf(CFTypeRef value);

std::optional<bool> booleanOf(CFTypeRef value);

/// Nothing for a number that `int` cannot hold exactly, too.
std::optional<int> integerOf(CFTypeRef value);

/// The same object, not owned; null when it is of another type. `T` and `type` belong together.
template <class T>
T typed(CFTypeRef value, CFTypeID type) {
    return value && CFGetTypeID(value) == type ? static_cast<T>(value) : nullptr;
}

/// Empty when the text is not UTF-8.
CFRef<CFStringRef> makeString(std::string_view text);

} // namespace quorvane
