#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "platform/macos/tables/DeferredReload.h"

namespace quorvane {
namespace {

TEST(DeferredReload, WaitsForTheEndOfAllUses) {
    int reloads = 0;
    bool isBeingEdited = false;
    std::vector<std::function<void()>> later;
    const auto reloadsLater = [&] {
        EXPECT_EQ(reloads, 0) << "not before the widget is done with its end";
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
    EXPECT_EQ(reloadsLater(), 0);
    isBeingEdited = true;
    recorder.end();
    EXPECT_EQ(reloadsLater(), 0);
    isBeingEdited = false;
    table->editingEnded();
    EXPECT_EQ(reloadsLater(), 1) << "both at once";
    table->use().end();
    EXPECT_TRUE(later.empty()) << "nobody asked for a reload";
    menu = table->use();
    table->request();
    menu.end();
    menu = table->use();
    EXPECT_EQ(reloadsLater(), 0) << "the next use has begun meanwhile";
    recorder = table->use();
    menu.end();
    table.reset();
    recorder.end();
    EXPECT_EQ(reloadsLater(), 0) << "the table has gone";
}

} // namespace
} // namespace quorvane
