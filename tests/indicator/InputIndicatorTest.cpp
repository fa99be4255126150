#include <limits>

#include <gmock/gmock.h>

#include "indicator/IndicatorPlacement.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

TEST(IndicatorOrigin, IsInTheWindowsTopRightCorner) {
    const Rect screen{0, 0, 1440, 900}, second{1440, -180, 1920, 1080}, wide{0, 0, 1e30, 900},
        odd{0, 0, 16777237, 900};
    constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto twiceLargest = 2 * static_cast<double>(largest);
    const auto window = boundsDictionary({100, 50, 1000, 600});
    const auto bounds = [](PropertyList x, PropertyList y, PropertyList width) -> PropertyList {
        return Dictionary{{"X", std::move(x)}, {"Y", std::move(y)}, {"Width", std::move(width)}};
    };
    // clang-format off
    const struct {
        const char* what;
        PropertyList bounds;
        Rect main, deepest;
        Point origin;
    } cases[] = {
        {"one screen", window, screen, screen, {1078, 828}},
        {"beyond the right edge", bounds(800, 50, 1000), screen, screen, {1420, 828}},
        {"the deepest screen turns", bounds(1500, 50, 1000), second, screen, {2478, 828}},
        {"left of the primary screen", bounds(-900, -40, 500), screen, screen, {-422, 918}},
        {"no window", {}, screen, screen, {-22, 878}},
        {"no dictionary", "100", screen, screen, {-22, 878}},
        {"fractions are cut off", bounds(100.9, 50.9, 1000.9), screen, screen, {1078, 828}},
        {"other types", bounds("100", true, Dictionary{}), screen, screen, {78, 877}},
        {"no screens", window, {}, {}, {-20, -72}},
        {"no numbers", bounds(nan, nan, nan), screen, screen, {-22, 878}},
        {"as large as it gets", bounds(largest, {}, infinity), wide, screen, {twiceLargest - 22, 878}},
        {"as small as it gets", bounds(-infinity, {}, -1e300), screen, screen, {-twiceLargest - 22, 878}},
        {"single precision", bounds(0, 0, 2e9), odd, screen, {16777216, 878}},
    };
    // clang-format on
    for (const auto& expected : cases)
        EXPECT_EQ(indicatorOrigin(expected.bounds, expected.main, expected.deepest), expected.origin)
            << expected.what;
}

class FollowingIndicator : public ProgramTest {
protected:
    FollowingIndicator() {
        standard_.setBool(true, key::enableTipOfState);
        standard_.setBool(true, key::followWindow);
        desktop_.windowList.frontToBack = {window};
        launch();
    }

    void releaseMouse() { desktop_.globalEvents.send({.type = EventType::leftMouseUp}); }
    void report(PropertyList userInfo) {
        desktop_.distributedNotifications.postFromOutside({"AXWindowAdjusted", std::move(userInfo)});
        desktop_.runLoop.settle();
    }

    static constexpr Point initial{1420, 880}, atWindow{1078, 828}, nowhere{-22, 878};
    const WindowDescription window{"an.app", "Title", {100, 50, 1000, 600}, 0, true};
};

TEST_F(FollowingIndicator, PassesOverWindowsThatNobodyWorksIn) {
    const auto sized = [](double width, double height) { return Rect{400, 50, width, height}; };
    const Rect large = sized(900, 600);
    // clang-format off
    const struct {
        const char* what;
        WindowDescription inFront;
        bool isPassedOver;
    } cases[] = {
        {"small", {"an.app", "Title", sized(150, 150), 0, true}, true},
        {"200 is small", {"an.app", "Title", sized(200, 200), 0, true}, true},
        {"one long side", {"an.app", "Title", sized(150, 200.5), 0, true}, false},
        {"without a title", {"an.app", "", large, 0, true}, true},
        {"title withheld", {"an.app", std::nullopt, large, 0, true}, false},
        {"floating", {"an.app", "Title", large, 3, true}, true},
        {"minimised", {"an.app", "Title", large, 0, false}, true},
        {"another's", {"other", "Title", large, 0, true}, true},
        {"nobody's", {std::nullopt, "Title", large, 0, true}, true},
    };
    // clang-format on
    desktop_.workspace.activate("an.app");
    for (const auto& expected : cases) {
        desktop_.windowList.frontToBack = {expected.inFront, window};
        releaseMouse();
        EXPECT_EQ(indicatorOrigin() == atWindow, expected.isPassedOver) << expected.what;
    }
    desktop_.windowList.frontToBack.clear();
    releaseMouse();
    EXPECT_EQ(indicatorOrigin(), nowhere);
}

TEST_F(FollowingIndicator, LooksAtEachActivationAndReleaseOfTheMouse) {
    EXPECT_EQ(indicatorOrigin(), initial);
    desktop_.workspace.activate("an.app");
    EXPECT_EQ(indicatorOrigin(), atWindow);
    desktop_.windowList.frontToBack.front().bounds.x -= 50;
    desktop_.workspace.activate("an.app"); // the same one: no decision, but a look
    EXPECT_EQ(indicatorOrigin(), (Point{1028, 828}));
    desktop_.windowList.frontToBack.front().bounds.x += 50;
    releaseMouse();
    EXPECT_EQ(indicatorOrigin(), atWindow);
    desktop_.workspace.activate(RunningApplication{.localizedName = "an.app"});
    EXPECT_EQ(indicatorOrigin(), nowhere) << "an application without an identifier has no name";
}

TEST_F(FollowingIndicator, TakesReportsAndNothingElseWhileTheCompanionRuns) {
    launchCompanion();
    desktop_.workspace.activate("an.app");
    releaseMouse();
    EXPECT_EQ(indicatorOrigin(), initial);
    report(Dictionary{{"X", 100}, {"Y", 50.0}, {"Width", "1000"}});
    EXPECT_EQ(indicatorOrigin(), atWindow);
    report({});
    EXPECT_EQ(indicatorOrigin(), nowhere);
    desktop_.workspace.quit(maker::companionBundleIdentifier);
    report(boundsDictionary(window.bounds));
    EXPECT_EQ(indicatorOrigin(), atWindow);
}

TEST_F(FollowingIndicator, StaysWhereItIsUnlessItIsShownAndFollows) {
    for (const auto setting : {key::enableTipOfState, key::followWindow}) {
        standard_.setBool(false, setting);
        desktop_.workspace.activate("an.app");
        releaseMouse();
        report(boundsDictionary(window.bounds));
        EXPECT_EQ(indicatorOrigin(), initial) << setting;
        standard_.setBool(true, setting);
    }
}

} // namespace
} // namespace quorvane
