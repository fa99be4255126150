#include <cstdint>
#include <iterator>

#include "macos/standins/StandIns.h"

using namespace quorvane;
using namespace quorvane::standins;

const CFStringRef kCGWindowOwnerName = constant("kCGWindowOwnerName");
const CFStringRef kCGWindowName = constant("kCGWindowName");
const CFStringRef kCGWindowBounds = constant("kCGWindowBounds");
const CFStringRef kCGWindowLayer = constant("kCGWindowLayer");
const CFStringRef kCGWindowIsOnscreen = constant("kCGWindowIsOnscreen");

/// The numbers of windows are their places in the list, beginning with 1.
CFArrayRef CGWindowListCreate(CGWindowListOption option, CGWindowID) {
    requireMain(__func__);
    if (!system().hasWindowServer) return nullptr;
    Object numbers{.type = array, .ownsParts = false};
    std::uintptr_t windowNumber = 0;
    for (const auto& window : system().windows) {
        ++windowNumber;
        const bool isOnScreen = PropertyList(window)["kCGWindowIsOnscreen"].boolValue();
        if (isOnScreen || option != kCGWindowListOptionOnScreenOnly)
            numbers.parts.push_back(reinterpret_cast<const void*>(windowNumber));
    }
    return static_cast<CFArrayRef>(addObject(std::move(numbers)));
}

CFArrayRef CGWindowListCreateDescriptionFromArray(CFArrayRef reference) {
    const auto* numbers = use(reference, __func__, array);
    if (!numbers) return nullptr;
    Object list{.type = array};
    for (const auto* windowNumber : numbers->parts)
        list.parts.push_back(addValue(system().windows[reinterpret_cast<std::uintptr_t>(windowNumber) - 1]));
    return static_cast<CFArrayRef>(addObject(std::move(list)));
}

bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef reference, CGRect* rect) {
    static const CFStringRef keys[] = {constant("X"), constant("Y"), constant("Width"), constant("Height")};
    double* const parts[] = {&rect->origin.x, &rect->origin.y, &rect->size.width, &rect->size.height};
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        const auto* part = CFDictionaryGetValue(reference, keys[i]);
        if (!part) return false;
        *parts[i] = static_cast<const Object*>(part)->value;
    }
    return true;
}
