#include "indicator/IndicatorPlacement.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr double distanceFromWindowEdge = 22; // points, both from the right and from the top
constexpr double distanceFromScreenEdge = 20; // points
constexpr double furthest = 100'000;          // points: beyond any screen, and within what any window takes

/// Also for what is no number.
double within(double place) {
    return std::max(-furthest, std::min(furthest, place));
}

} // namespace

PropertyList boundsDictionary(const Rect& bounds) {
    return PropertyList::Dictionary{
        {"X", bounds.x}, {"Y", bounds.y}, {"Width", bounds.width}, {"Height", bounds.height}};
}

Point indicatorOrigin(const PropertyList& followedBounds, const Rect& mainScreen, const Rect& deepestScreen) {
    // Whole numbers, but not added as such: those of a broken program can be as large as they get.
    const auto number = [&](std::string_view key) {
        return static_cast<double>(followedBounds[key].integerValue());
    };
    const auto screenLimit = static_cast<float>(mainScreen.x + mainScreen.width - distanceFromScreenEdge);
    const auto x =
        std::min(number("X") + number("Width") - distanceFromWindowEdge, static_cast<double>(screenLimit));
    // The deepest screen turns top-left into bottom-left coordinates; the main one is added and taken away.
    const auto y =
        mainScreen.height - number("Y") - mainScreen.height + deepestScreen.height - distanceFromWindowEdge;
    return {within(x), within(y)};
}

} // namespace quorvane
