#include "platform/macos/appkit/MacScreens.h"

#include <cstdint>

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

std::optional<Screen> describe(NSScreen* screen) {
    if (!screen) return std::nullopt;
    const auto number = fromNSObject(screen.deviceDescription[@"NSScreenNumber"]).integerValue();
    const auto frame = screen.frame;
    return Screen{.number = static_cast<std::int32_t>(number),
                  .frame = {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height},
                  .depth = static_cast<int>(NSBitsPerPixelFromDepth(screen.depth))};
}

} // namespace

std::optional<Screen> MacScreens::mainScreen() const {
    return describe(NSScreen.mainScreen);
}

std::optional<Screen> MacScreens::deepestScreen() const {
    return describe(NSScreen.deepestScreen);
}

} // namespace quorvane
