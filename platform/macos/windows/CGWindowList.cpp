#include "platform/macos/windows/CGWindowList.h"

#include "platform/macos/Apple.h"
#include "platform/macos/CFRef.h"
#include "platform/macos/CFValues.h"

namespace quorvane {
namespace {

Rect boundsOf(CFTypeRef value) {
    const auto dictionary = typed<CFDictionaryRef>(value, CFDictionaryGetTypeID());
    CGRect bounds{};
    if (!dictionary || !CGRectMakeWithDictionaryRepresentation(dictionary, &bounds)) return {};
    return {bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height};
}

/// The flag is a boolean, as documented, or else a number.
bool isTrue(CFTypeRef value) {
    return booleanOf(value).value_or(integerOf(value).value_or(0) != 0);
}

WindowDescription describe(CFDictionaryRef window) {
    const auto value = [&](CFStringRef key) { return CFDictionaryGetValue(window, key); };
    return {.ownerName = stringOf(value(kCGWindowOwnerName)),
            .name = stringOf(value(kCGWindowName)),
            .bounds = boundsOf(value(kCGWindowBounds)),
            .layer = integerOf(value(kCGWindowLayer)).value_or(0),
            .isOnScreen = isTrue(value(kCGWindowIsOnscreen))};
}

} // namespace

std::vector<WindowDescription> CGWindowList::windows() const {
    // The elements of this array are plain numbers, not objects. It may go nowhere but to the next call.
    const auto numbers =
        CFRef<CFArrayRef>::adopt(CGWindowListCreate(kCGWindowListOptionOnScreenOnly, kCGNullWindowID));
    if (!numbers) return {}; // There is no window server.
    const auto descriptions = CFRef<CFArrayRef>::adopt(CGWindowListCreateDescriptionFromArray(numbers.get()));
    std::vector<WindowDescription> windows;
    const CFIndex count = descriptions ? CFArrayGetCount(descriptions.get()) : 0;
    for (CFIndex i = 0; i < count; ++i) {
        const auto window =
            typed<CFDictionaryRef>(CFArrayGetValueAtIndex(descriptions.get(), i), CFDictionaryGetTypeID());
        if (window) windows.push_back(describe(window));
    }
    return windows;
}

} // namespace quorvane
