#include <limits>

#include <gmock/gmock.h>

#include "indicator/IndicatorPlacement.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

TEST(IndicatorOrigin, IsInTheWindowsTopRightCorner) {
    const Rect screen{0, 0, 1440, 900};
    const Rect second{1440, -180, 1920, 1080};
    constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto largestSum = 2 * static_cast<double>(largest) - 22;
    const struct {
        const char* what;
        PropertyList bounds;
        Rect main, deepest;
        Point origin;
    } cases[] = {
        {"one screen", boundsDictionary({100, 50, 1000, 600}), screen, screen, {1078, 828}},
        {"beyond the right edge", boundsDictionary({800, 50, 1000, 600}), screen, screen, {1420, 828}},
        {"the deepest screen turns", boundsDictionary({1500, 50, 1000, 600}), second, screen, {2478, 828}},
        {"left of the primary screen", boundsDictionary({-900, -40, 500, 300}), screen, screen, {-422, 918}},
        {"no window", {}, screen, screen, {-22, 878}},
        {"no dictionary", "100", screen, screen, {-22, 878}},
        {"fractions are cut off", boundsDictionary({100.9, 50.9, 1000.9, 600}), screen, screen, {1078, 828}},
        {"other types",
         Dictionary{{"X", "100"}, {"Y", true}, {"Width", Dictionary{}}},
         screen,
         screen,
         {78, 877}},
        {"no screens", boundsDictionary({100, 50, 1000, 600}), {}, {}, {-20, -72}},
        {"no numbers", Dictionary{{"X", nan}, {"Y", nan}, {"Width", nan}}, screen, screen, {-22, 878}},
        {"as large as it gets",
         Dictionary{{"X", largest}, {"Width", infinity}},
         {0, 0, 1e30, 900},
         screen,
         {largestSum, 878}},
        {"as small as it gets",
         Dictionary{{"X", -infinity}, {"Width", -1e300}},
         screen,
         screen,
         {-2 * static_cast<double>(largest) - 22, 878}},
        {"single precision",
         boundsDictionary({0, 0, 2e9, 0}),
         {0, 0, 16777237, 900},
         screen,
         {16777216, 878}},
    };
    for (const auto& expected : cases) {
        EXPECT_EQ(indicatorOrigin(expected.bounds, expected.main, expected.deepest).x, expected.origin.x)
            << expected.what;
        EXPECT_EQ(indicatorOrigin(expected.bounds, expected.main, expected.deepest).y, expected.origin.y)
            << expected.what;
    }
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
    auto changed = [this](auto change) {
        auto other = window;
        change(other);
        return other;
    };
    const struct {
        const char* what;
        WindowDescription inFront;
        bool isPassedOver;
    } cases[] = {
        {"small", changed([](auto& each) {
             each.bounds = {0, 0, 150, 150};
         }),
         true},
        {"200 is small", changed([](auto& each) {
             each.bounds = {0, 0, 200, 200};
         }),
         true},
        {"one long side", changed([](auto& each) {
             each.bounds = {0, 0, 150, 200.5};
         }),
         false},
        {"without a title", changed([](auto& each) { each.name = ""; }), true},
        {"title withheld", changed([](auto& each) { each.name.reset(); }), false},
        {"floating", changed([](auto& each) { each.layer = 3; }), true},
        {"minimised", changed([](auto& each) { each.isOnScreen = false; }), true},
        {"another's", changed([](auto& each) { each.ownerName = "other"; }), true},
        {"nobody's", changed([](auto& each) { each.ownerName.reset(); }), true},
    };
    desktop_.workspace.activate("an.app");
    for (const auto& expected : cases) {
        auto inFront = expected.inFront;
        inFront.bounds.x += 300;
        inFront.bounds.width = std::min(inFront.bounds.width, 900.0);
        desktop_.windowList.frontToBack = {inFront, window};
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

TEST_F(FollowingIndicator, TakesReports) {
    report(Dictionary{{"X", 100}, {"Y", 50.0}, {"Width", "1000"}});
    EXPECT_EQ(indicatorOrigin(), atWindow);
    report({});
    EXPECT_EQ(indicatorOrigin(), nowhere);
}

TEST_F(FollowingIndicator, IsMovedByReportsOnlyWhileTheCompanionRuns) {
    launchCompanion();
    desktop_.workspace.activate("an.app");
    releaseMouse();
    EXPECT_EQ(indicatorOrigin(), initial);
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
