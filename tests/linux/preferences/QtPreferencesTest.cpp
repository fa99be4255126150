#include <QApplication>
#include <gtest/gtest.h>

#include "platform/linux/WaylandSession.h"
#include "platform/linux/preferences/CellTable.h"
#include "platform/linux/preferences/NoticeStrip.h"
#include "platform/linux/preferences/QtPreferences.h"
#include "platform/simulated/SimulatedUserDefaults.h"

namespace quorvane {
namespace {

TEST(QtPreferences, TellsItsNoticesWhereverItsWindowIsByThen) {
    const auto x = XConnection::open();
    NotificationCenter notifications;
    SimulatedUserDefaults defaults;
    Notices notices;
    notices.set("second", "B");
    qputenv("XDG_SESSION_TYPE", "wayland");
    QtPreferences preferences({*x, notifications, defaults.standardUserDefaults(), notices});
    qunsetenv("XDG_SESSION_TYPE");
    const auto windows = QApplication::topLevelWidgets();
    ASSERT_EQ(windows.size(), 1);
    const auto* strip = windows.first()->findChild<NoticeStrip*>();
    ASSERT_TRUE(strip);
    const auto told = [&] { return strip->isHidden() ? QString() : strip->accessibleName(); };
    EXPECT_EQ(told(), "B");
    notices.set("first", "A <b>");
    EXPECT_EQ(told(), "A <b>\nB") << "each in its place";
    notices.set("first", "");
    notices.set("second", "");
    EXPECT_EQ(told(), "");
    const auto* table = windows.first()->findChild<CellTable*>("autoInputByApplicationTableView");
    EXPECT_EQ(table->property("emptyText").toString(), waylandNotice());
}

} // namespace
} // namespace quorvane
