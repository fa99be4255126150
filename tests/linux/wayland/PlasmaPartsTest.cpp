// How Plasma names layouts and keys, taken apart.

#include <Qt>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/kwin/PlasmaLayouts.h"
#include "platform/linux/kwin/QtKeys.h"

namespace quorvane {
namespace {

using Layouts = std::vector<XkbLayout>;

TEST(PlasmaLayoutsTest, HaveTheVariantsOfTheSettingsThatAreInUseElseOfTheDatabase) {
    const std::vector<PlasmaLayoutName> told{{"us", "English (US)"}, {"ru", "Russian (phonetic)"}};
    const struct {
        std::vector<PlasmaLayoutName> told;
        Layouts configured, expected;
    } cases[] = {
        {told, {{"us", "dvorak"}, {"ru", ""}}, {{"us", "dvorak"}, {"ru", ""}}},
        {told, {{"ru", ""}, {"us", "dvorak"}}, {{"us", ""}, {"ru", "phonetic"}}},
        {told, {{"us", "dvorak"}}, {{"us", ""}, {"ru", "phonetic"}}},
        {{{"xx", "English (US)"}, {"yy", "Nobody's"}}, {}, {{"xx", ""}, {"yy", ""}}},
        {{}, {{"us", ""}}, {}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(plasmaLayouts(each.told, each.configured), each.expected) << each.configured.size();
}

TEST(QtKeysTest, CountShiftOnlyWhereItIsNotPartOfWhatTheKeyTypes) {
    constexpr auto shift = ModifierFlag::shift, control = ModifierFlag::control;
    const struct {
        std::uint64_t flags;
        std::uint32_t typed, withShift;
        std::optional<int> expected;
    } cases[] = {
        {control, XKB_KEY_j, XKB_KEY_J, Qt::CTRL | Qt::Key_J},
        {control | shift, XKB_KEY_j, XKB_KEY_J, Qt::CTRL | Qt::SHIFT | Qt::Key_J},
        {control | shift, XKB_KEY_1, XKB_KEY_exclam, Qt::CTRL | Qt::Key_Exclam},
        {shift, XKB_KEY_F5, XKB_KEY_F5, Qt::SHIFT | Qt::Key_F5},
        {ModifierFlag::option | ModifierFlag::command, XKB_KEY_Tab, 0, Qt::ALT | Qt::META | Qt::Key_Tab},
        {control, XKB_KEY_KP_1, XKB_KEY_KP_1, std::nullopt},
        {control, 0, 0, std::nullopt},
    };
    for (const auto& each : cases)
        EXPECT_EQ(qtKeyOf({0, each.flags}, each.typed, each.withShift), each.expected) << each.typed;
}

} // namespace
} // namespace quorvane
