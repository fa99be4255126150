#include <cstdlib>

#include <QLibraryInfo>
#include <gtest/gtest.h>

#include "linux/preferences/ShownTable.h"
#include "linux/support/Keyboard.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/linux/localization/Translations.h"
#include "platform/linux/preferences/ShortcutRecorder.h"
#include "platform/linux/x11/keyboard/X11PrintedKeyboard.h"
#include "platform/linux/x11/windows/X11WindowHost.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {
namespace {

constexpr std::uint8_t backspace = 22, keyY = 29, keyK = 45, shift = 50, alt = 64, capsLock = 66, f5 = 71,
                       numLock = 77, altGr = 108, remove = 119, command = 133, keyOfNoCode = 179;

struct ShortcutRecorderTest : testing::Test {
    ~ShortcutRecorderTest() override { XServer::setLayouts("us"); }

    QAbstractButton& recorder() { return *shown.widgetAt<QAbstractButton>(1, shortcut); }
    QString said() { return recorder().text(); }
    bool waitUntilItSays(const QString& text) {
        return waitUntil([&] { return said() == text; });
    }
    bool begin() {
        shown.click(shown.middleOf(1, shortcut));
        return waitUntilItSays("Press the keys");
    }
    /// The keyboard is free again: everybody could have it.
    bool isReleased() {
        return waitUntil([&] { return !QWidget::keyboardGrabber() && shown.table.hasFocus(); });
    }

    ShownTable shown{3};
};

TEST_F(ShortcutRecorderTest, RecordsPositionsInEveryLayout) {
    const struct {
        Keys keys;
        InputShortcut recorded;
        const char* said;
    } cases[] = {{{control, alt, keyK}, {0x28, 0xc0000}, "Ctrl+Alt+K"},
                 {{command, f5}, {0x60, 0x100000}, "Super+F5"},
                 {{shift, command, tab}, {0x30, 0x120000}, "Shift+Super+Tab"},
                 {{control, escape}, {0x35, 0x40000}, "Ctrl+Esc"},
                 {{shift, backspace}, {0x33, 0x20000}, "Shift+Backspace"},
                 {{keyK}, {0x28, 0}, "Record shortcut"}};
    for (const QString layouts : {"us", "ru,us", "de"}) {
        ASSERT_TRUE(XServer::setLayouts(layouts));
        const Keys locks = layouts == "us" ? Keys{} : Keys{capsLock, numLock};
        shown.tap(locks);
        for (const auto& [keys, recorded, text] : cases) {
            EXPECT_TRUE(begin());
            shown.user.pressTogether(keys);
            EXPECT_TRUE(isReleased());
            EXPECT_EQ(shown.stored("1"), recorded.record()) << text;
            EXPECT_TRUE(waitUntilItSays(text)) << said().toStdString();
            auto& cross = *recorder().findChild<QAbstractButton*>();
            EXPECT_TRUE(cross.isVisible()) << "whatever is shown";
            cross.click();
            EXPECT_TRUE(shown.stored("1").isNothing()) << text;
            EXPECT_FALSE(cross.isVisible());
        }
        shown.tap(locks);
    }
    begin();
    shown.user.pressTogether({altGr, keyY}); // It types.
    EXPECT_TRUE(waitUntilItSays("This key cannot be used"));
    shown.user.pressTogether({control, keyY});
    EXPECT_TRUE(waitUntilItSays("Ctrl+Z")) << "the names are those of the last layout";
}

TEST_F(ShortcutRecorderTest, TakesKeysFromEverybodyUntilItEnds) {
    const auto other = XConnection::open();
    X11HotKeys hotKeys(*other);
    int fired = 0;
    const auto hotKey =
        hotKeys.registerHotKey({0x28, ModifierFlag::control | ModifierFlag::option}, [&] { ++fired; });
    ASSERT_TRUE(hotKey);
    begin();
    shown.user.press(control);
    EXPECT_TRUE(waitUntilItSays("Ctrl+…"));
    shown.user.press(alt);
    EXPECT_TRUE(waitUntilItSays("Ctrl+Alt+…"));
    shown.user.press(keyK);
    EXPECT_TRUE(waitUntilItSays("Ctrl+Alt+K"));
    EXPECT_TRUE(QWidget::keyboardGrabber()) << "as long as the key is held";
    shown.user.release(keyK);
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(fired, 0);
    shown.user.press(keyK);
    EXPECT_TRUE(waitUntil([&] { return fired == 1; })) << "the hot key is there again";
    for (const auto key : {keyK, alt, control})
        shown.user.release(key);

    const auto cell = shown.table.model()->index(1, shortcut);
    const auto refusal = ShortcutRecorder::textOfRefusal();
    EXPECT_EQ(recorder().toolTip(), refusal) << "it is the other one's";
    const auto described = [&] {
        return recorder().accessibleDescription() + cell.data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(described().count(refusal), 2);
    const auto marked = recorder().grab().toImage();
    shown.hotKeyCenter.unregisterHotKey(*shown.hotKeyCenter.hotKeyWithIdentifier("1"));
    shown.port.reloadData();
    EXPECT_EQ(recorder().toolTip(), QString());
    EXPECT_EQ(described().count(refusal), 0);
    EXPECT_NE(recorder().grab().toImage(), marked);
}

TEST_F(ShortcutRecorderTest, IsLeftAndCleared) {
    shown.store("1", {0x7a, 0});
    const std::function<void()> ends[] = {
        [&] { shown.tap({escape}); },
        [&] { shown.tap({tab}); },
        [&] { shown.tap({space}); },
        [&] { shown.tap({enter}); },
        [&] { shown.click(shown.middleOf(2, name)); },
        [&] { shown.click(shown.middleOf(1, shortcut)); },
        [&] { shown.table.hide(); },
    };
    for (const auto& end : ends) {
        EXPECT_TRUE(begin());
        shown.tap({keyOfNoCode});
        shown.port.reloadData();
        EXPECT_TRUE(waitUntilItSays("This key cannot be used")) << "a reload leaves it alone";
        end();
        EXPECT_TRUE(waitUntil([] { return !QWidget::keyboardGrabber(); }));
        EXPECT_EQ(said(), "F1");
    }
    ASSERT_TRUE(waitUntil([] { return !QGuiApplication::focusWindow(); }));
    shown.table.show();
    ASSERT_TRUE(waitUntil([&] { return shown.table.isActiveWindow(); }));
    for (const auto& keys : {Keys{backspace}, {remove}, {space, backspace}, {space, remove}}) {
        shown.store("1", {0x28, 0}); // A letter, which is not shown.
        shown.table.setFocus();
        shown.table.setCurrentIndex(shown.table.model()->index(1, shortcut));
        shown.tap(keys);
        EXPECT_TRUE(waitUntil([&] { return shown.stored("1").isNothing(); })) << testing::PrintToString(keys);
        EXPECT_TRUE(isReleased());
    }
}

/// How much lighter or darker than the ground is what stands out most: 0 to 255.
int contrastIn(const QImage& image, const QColor& ground) {
    int most = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            most = std::max(most, std::abs(image.pixelColor(x, y).lightness() - ground.lightness()));
    return most;
}

TEST(ShortcutRecorder, CanBeReadInEveryAppearanceAndLanguage) {
    const auto x = XConnection::open();
    X11PrintedKeyboard printed(*x);
    X11WindowHost host(*x);
    ShortcutKeyboard keyboard(printed, host);
    ShortcutRecorder recorder(keyboard, nullptr);
    for (const auto& [text, window] :
         {std::pair(Qt::black, QColor(239, 239, 239)), std::pair(Qt::white, QColor(53, 53, 53))}) {
        recorder.setPalette(QPalette(text, window));
        recorder.resize(400, 40);
        auto font = recorder.font();
        font.setPixelSize(26); // Thick enough for pixels that are all text.
        recorder.setFont(font);
        const auto image = recorder.grab(recorder.rect().adjusted(8, 8, -8, -8)).toImage();
        EXPECT_GE(contrastIn(image, window), 128);
    }

    QTranslator textsOfQt;
    ASSERT_TRUE(textsOfQt.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    QCoreApplication::installTranslator(&textsOfQt);
    recorder.setFont({});
    recorder.resize(recorder.sizeHint());
    for (const std::int64_t pageDownOrVolume : {0x79, 0x49, 0x4a}) {
        constexpr std::int64_t all = 0x1e0000;
        recorder.setPart({.objectValue = InputShortcut{pageDownOrVolume, all}.record(),
                          .hasEntry = true,
                          .allowedModifierFlags = all});
        EXPECT_TRUE(recorder.text().startsWith("Strg+Alt+Umschalt+"));
        recorder.resize(recorder.placeIn({0, 0, 1000, 40}).size());
        EXPECT_EQ(recorder.toolTip(), QString()) << "it is cut: " << recorder.text().toStdString();
    }
    QCoreApplication::removeTranslator(&textsOfQt);
}

} // namespace
} // namespace quorvane
