#include <QApplication>
#include <QCheckBox>
#include <gtest/gtest.h>

#include "platform/linux/preferences/CellTable.h"
#include "platform/linux/preferences/NoticeStrip.h"
#include "platform/linux/preferences/QtPreferences.h"
#include "platform/linux/preferences/SettingsNotices.h"
#include "platform/linux/x11/keyboard/X11PrintedKeyboard.h"
#include "platform/linux/x11/windows/X11WindowHost.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "preferences/CheckBoxBinding.h"

namespace quorvane {
namespace {

TEST(QtPreferences, TellsItsNoticesWhereverItsWindowIsByThen) {
    const auto x = XConnection::open();
    X11WindowHost host(*x);
    X11PrintedKeyboard keyboard(*x);
    NotificationCenter notifications;
    Notices notices;
    notices.set("second", "B");
    QtPreferences preferences({host, keyboard, notifications, notices, "what the session is like"});
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
    EXPECT_EQ(table->property("emptyText").toString(), "what the session is like");
}

TEST(QtPreferences, OptionsShowAndStoreTheSettingsTheyAreNamedAfter) {
    const auto x = XConnection::open();
    X11WindowHost host(*x);
    X11PrintedKeyboard keyboard(*x);
    NotificationCenter notifications;
    Notices notices;
    Journal journal;
    SimulatedUserDefaults defaults{journal};
    auto& standard = defaults.standardUserDefaults();
    QtPreferences preferences({host, keyboard, notifications, notices, {}});
    standard.setBool(true, "followWindow");
    const auto bindings = bindCheckBoxes(preferences.outlets().options, standard);
    const auto checkBoxes = QApplication::topLevelWidgets().first()->findChildren<QCheckBox*>();
    EXPECT_EQ(checkBoxes.size(), 5);
    for (auto* checkBox : checkBoxes) {
        const auto key = checkBox->objectName().toStdString();
        EXPECT_EQ(checkBox->isChecked(), key == "followWindow");
        standard.setBool(true, key);
        EXPECT_TRUE(checkBox->isChecked()) << key;
        checkBox->click();
        EXPECT_EQ(standard.objectForKey(key), PropertyList(false)) << key;
    }
}

TEST(SettingsNotices, TellAsLongAsItIsSo) {
    SettingsHealth health;
    Notices notices;
    const SettingsNotices told(health, notices);
    EXPECT_EQ(notices.text(), "");
    using enum SettingsHealth::Obstacle;
    health.cannotSave("file", cannotBeWritten, "/folder", "disk full");
    EXPECT_EQ(notices.text(),
              "/folder cannot be written (disk full). Your settings are in use, and are saved as soon "
              "as they can be.");
    health.saves("file");
    EXPECT_EQ(notices.text(), "");
    health.cannotSave("file", lockedByAnotherProgram, "/file", "");
    health.wasSetAside("/kept");
    EXPECT_EQ(notices.text(),
              "A settings file was damaged and has been replaced. What was in it is kept as /kept.\n"
              "Another program keeps /file locked. Your settings are in use, and are saved later.");
}

} // namespace
} // namespace quorvane
