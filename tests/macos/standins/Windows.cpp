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
    if (!system().hasWindowServer) return nullptr;
    Object numbers{.type = array, .ownsParts = false};
    std::uintptr_t windowNumber = 0;
    for (const auto& window : system().windows) {
        ++windowNumber;
        if (PropertyList(window)["kCGWindowIsOnscreen"].boolValue() ||
            option != kCGWindowListOptionOnScreenOnly)
            numbers.parts.push_back(reinterpret_cast<const void*>(windowNumber));
    }
    return add<CFArrayRef>(std::move(numbers));
}

CFArrayRef CGWindowListCreateDescriptionFromArray(CFArrayRef reference) {
    Object list{.type = array};
    for (const auto* windowNumber : use(reference, __func__, array).parts)
        list.parts.push_back(addValue(system().windows[reinterpret_cast<std::uintptr_t>(windowNumber) - 1]));
    return add<CFArrayRef>(std::move(list));
}

bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef reference, CGRect* rect) {
    static const CFStringRef keys[] = {constant("X"), constant("Y"), constant("Width"), constant("Height")};
    double* part[] = {&rect->origin.x, &rect->origin.y, &rect->size.width, &rect->size.height};
    for (std::size_t i = 0; i < std::size(keys); ++i) {
        const auto* value = CFDictionaryGetValue(reference, keys[i]);
        if (!value) return false;
        *part[i] = use(value, __func__, number).value;
    }
    return true;
}
