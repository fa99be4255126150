#include <limits>

#include <gmock/gmock.h>

#include "indicator/IndicatorPlacement.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

TEST(IndicatorOrigin, IsInTheWindowsTopRightCorner) {
    const Rect screen{0, 0, 1440, 900}, second{1440, -180, 1920, 1080}, wide{0, 0, 1e30, 900},
        odd{0, 0, 20020.1, 900};
    constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
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
        {"as large as it gets", bounds(largest, {}, infinity), wide, screen, {100'000, 878}},
        {"as small as it gets", bounds(-infinity, {}, -1e300), screen, screen, {-100'000, 878}},
        {"as high as it gets", Dictionary{{"Y", smallest}}, screen, screen, {-22, 100'000}},
        {"as low as it gets", Dictionary{{"Y", largest}}, screen, screen, {-22, -100'000}},
        {"single precision", bounds(0, 0, 2e9), odd, screen, {20000.1F, 878}},
    };
    // clang-format on
    for (const auto& expected : cases)
        EXPECT_EQ(indicatorOrigin(expected.bounds, expected.main, expected.deepest), expected.origin)
            << expected.what;
}

TEST_F(ProgramTest, TheIndicatorPassesOverWindowsThatNobodyWorksIn) {
    const auto sized = [](double width, double height) { return Rect{400, 50, width, height}; };
    const Rect large = sized(900, 600);
    constexpr const char *passedOver = "0 look; indicator at 1078,828",
                         *atLarge = "0 look; indicator at 1278,828",
                         *atSmall = "0 look; indicator at 528,828";
    // clang-format off
    const struct {
        const char* what;
        WindowDescription inFront;
        const char* follows;
    } cases[] = {
        {"small", {"front.app", "Title", sized(150, 150), 0, true}, passedOver},
        {"200 is small", {"front.app", "Title", sized(200, 200), 0, true}, passedOver},
        {"high", {"front.app", "Title", sized(150, 200.5), 0, true}, atSmall},
        {"wide", {"front.app", "Title", sized(900, 100), 0, true}, atLarge},
        {"without a title", {"front.app", "", large, 0, true}, passedOver},
        {"title withheld", {"front.app", std::nullopt, large, 0, true}, atLarge},
        {"floating", {"front.app", "Title", large, 3, true}, passedOver},
        {"minimised", {"front.app", "Title", large, 0, false}, passedOver},
        {"another's", {"other", "Title", large, 0, true}, passedOver},
        {"nobody's", {std::nullopt, "Title", large, 0, true}, passedOver},
    };
    // clang-format on
    play("launch own:enableTipOfState=true own:followWindow=true front.app |");
    auto& windows = desktop_.windowList.frontToBack;
    const auto behind = windows.front();
    for (const auto& [what, inFront, follows] : cases) {
        windows = {inFront, behind};
        EXPECT_EQ(play("| mouse"), Lines{follows}) << what;
    }
    windows.clear();
    EXPECT_EQ(play("| mouse"), Lines{"0 look; indicator at -22,878"});
}

const std::string following = "own:enableTipOfState=true own:followWindow=true launch ";
const std::string looks = "look; indicator at 1078,828";

const Story indicatorStories[] = {
    {"at each activation, also of the same application, and each release of the mouse",
     following + "| front.app 1 front.app 1 mouse 1 unhides:front.app",
     {"0 " + looks, "1 " + looks, "2 " + looks, "3 " + looks}},
    {"one without an identifier has no name", following + "| nameless", {"0 look; indicator at -22,878"}},
    {"while the companion runs, where that says",
     following + "companion | front.app 1 mouse 1 reports:AXWindowAdjusted 1",
     {"2 indicator at 578,828"}},
    {"which may quit", following + "companion companion-quits | front.app 1", {"0 " + looks}},
    {"nowhere while it is not shown",
     following + "own:enableTipOfState=false | front.app mouse reports:AXWindowAdjusted 1",
     {}},
    {"nowhere while it does not follow",
     following + "own:followWindow=false | front.app mouse reports:AXWindowAdjusted 1",
     {}},
    {"other messages are none of its", following + "| reports:another 1", {}},
    {"once after a burst of new sources",
     "own:enableTipOfState=true launch | =ru 0.1 =us 0.19 1 =de 0.1 reports:another 1",
     {"0.3 icon 18x18", "1.49 box hidden; no icon"}},
    {"a coloured icon stands alone, in its own size",
     "own:enableTipOfState=true launch | =ru 0.1 0.1",
     {"0.2 box hidden; icon 2x1"}},
    {"at once when it is switched on or off",
     "launch | own:enableTipOfState=true 1 own:enableTipOfState=false =ru 1",
     {"0 own enableTipOfState = true; icon shown; box shown; icon 18x18",
      "1 own enableTipOfState = false; icon hidden; box hidden"}},
};
INSTANTIATE_TEST_SUITE_P(Indicator, Stories, testing::ValuesIn(indicatorStories));

} // namespace
} // namespace quorvane
