#include "switching/LauncherWindows.h"

#include "platform/PropertyList.h"

namespace quorvane {
namespace {

constexpr std::string_view alfredOwnerPrefix = "Alfred";
constexpr int alfredLayer = 27;

constexpr std::string_view spotlightOwner = "Spotlight";
constexpr std::string_view spotlightOwnerInChinese = "聚焦";
constexpr std::int64_t spotlightSmallestWidth = 101; // points, without their fraction

} // namespace

bool isAlfredWindow(const WindowDescription& window) {
    return window.ownerName && window.ownerName->starts_with(alfredOwnerPrefix) && window.isOnScreen &&
           window.layer == alfredLayer;
}

bool isSpotlightWindow(const WindowDescription& window) {
    return (window.ownerName == spotlightOwner || window.ownerName == spotlightOwnerInChinese) &&
           window.isOnScreen && PropertyList(window.bounds.width).integerValue() >= spotlightSmallestWidth;
}

} // namespace quorvane
