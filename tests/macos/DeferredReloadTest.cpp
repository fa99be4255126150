#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "platform/macos/tables/CellLayout.h"
#include "platform/macos/tables/DeferredReload.h"

namespace quorvane {
namespace {

TEST(DeferredReload, WaitsForTheEndOfAllUses) {
    int reloads = 0;
    bool isBeingEdited = false;
    std::vector<std::function<void()>> later;
    const auto runLater = [&] {
        for (const auto& call : std::exchange(later, {}))
            call();
        return std::exchange(reloads, 0);
    };
    std::optional<DeferredReload> table(
        DeferredReload::Table{.reload = [&] { ++reloads; },
                              .isBeingEdited = [&] { return isBeingEdited; },
                              .callLater = [&](auto call) { later.push_back(std::move(call)); }});
    table->request();
    EXPECT_EQ(std::exchange(reloads, 0), 1) << "nothing is used";
    auto menu = table->use();
    auto recorder = table->use();
    table->request();
    table->request();
    menu.end();
    EXPECT_EQ(runLater(), 0);
    isBeingEdited = true;
    recorder.end();
    EXPECT_EQ(runLater(), 0);
    isBeingEdited = false;
    table->editingEnded();
    EXPECT_EQ(reloads, 0) << "not before the editor has gone";
    EXPECT_EQ(runLater(), 1) << "both at once";
    menu = table->use();
    menu.end();
    EXPECT_TRUE(later.empty()) << "nobody asked for a reload";
    menu = table->use();
    table->request();
    menu.end();
    menu = table->use();
    EXPECT_EQ(runLater(), 0) << "the next use has begun meanwhile";
    recorder = table->use();
    menu.end();
    recorder.end();
    menu = table->use();
    table.reset();
    menu.end();
    EXPECT_EQ(runLater(), 0) << "the table has gone";
}

TEST(CellLayout, NothingOfAPartIsOutsideOfItsCell) {
    constexpr Size cell{100, 25};
    const std::pair<CellPart, Rect> cases[] = {
        {TextFieldPart{.frame = {0, 2.5, 1000, 20}}, {0, 2.5, 100, 20}},
        {TextFieldPart{.frame = {5, 0, 20, 20}}, {5, 0, 95, 20}},
        {PopUpButtonPart{.frame = {0, 1, 150, 22}}, {0, 1, 98, 22}},
        {ShortcutRecorderPart{.frame = {20, -8, 140, 30}}, {20, 0, 78, 22}},
        {BoxPart{.frame = {20, 1.5, 140, 30}}, {20, 1.5, 78, 23.5}},
        {BoxPart{.frame = {120, 1.5, 140, 20}}, {100, 1.5, 0, 20}},
        {ImageViewPart{.frame = {6, 3, 20, 20}}, {6, 3, 20, 20}},
        {CheckBoxPart{.frame = {90, 0, 20, 20}}, {80, 0, 20, 20}},
        {CheckBoxPart{.frame = {-5, 10, 120, 20}}, {0, 10, 100, 15}}};
    for (const auto& [part, expected] : cases)
        EXPECT_EQ(placeIn(cell, part), expected) << part.index() << ' ' << expected.x;
    EXPECT_EQ(placeIn({1000, 25}, PopUpButtonPart{.frame = {0, 1, 150, 22}}).width, 320);
    EXPECT_EQ(placeIn({0, 0}, CheckBoxPart{.frame = {40, 0, 20, 20}}), Rect());
}

} // namespace
} // namespace quorvane
