#include <QProcess>
#include <gtest/gtest.h>

#include "linux/preferences/ShownTable.h"
#include "platform/GlobalEventMonitor.h"
#include "platform/linux/keyboard/X11HotKeys.h"

namespace quorvane {
namespace {

constexpr std::uint8_t escape = 9, backspace = 22, tab = 23, keyY = 29, control = 37, keyK = 45, shift = 50,
                       alt = 64, space = 65, capsLock = 66, f5 = 71, numLock = 77, altGr = 108, command = 133,
                       keyOfNoCode = 179;

struct ShortcutRecorderTest : testing::Test {
    ~ShortcutRecorderTest() override { setLayouts("us"); }

    void setLayouts(const QString& layouts) {
        ASSERT_EQ(QProcess::execute("setxkbmap", {"-rules", "evdev", "-model", "pc105", "-layout", layouts}),
                  0);
    }
    QString said() { return shown.widgetAt<QAbstractButton>(1, shortcut)->text(); }
    bool waitUntilItSays(const QString& text) {
        return waitUntil([&] { return said() == text; });
    }
    void begin() {
        shown.click(shown.middleOf(1, shortcut));
        EXPECT_TRUE(waitUntilItSays("Press the keys"));
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
                 {{backspace}, {0x33, 0}, "Backspace"}};
    const auto expectRecorded = [this](const Keys& keys, const InputShortcut& recorded, const char* text) {
        shown.recorded = {};
        shown.port.reloadData();
        begin();
        shown.user.pressTogether(keys);
        EXPECT_TRUE(isReleased());
        EXPECT_EQ(shown.recorded, recorded.record()) << text;
        EXPECT_TRUE(waitUntilItSays(text)) << said().toStdString();
    };
    for (const QString layouts : {"us", "ru,us", "de"}) {
        setLayouts(layouts);
        for (const auto& locks : {Keys{}, {capsLock, numLock}}) {
            shown.tap(locks);
            for (const auto& [keys, recorded, text] : cases)
                expectRecorded(keys, recorded, text);
            shown.tap(locks);
        }
    }
    expectRecorded({altGr, keyY}, {0x10, 0}, "Z"); // It types, and the names are those of the last layout.
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
    EXPECT_EQ(QWidget::keyboardGrabber() != nullptr, true) << "as long as the key is held";
    shown.user.release(keyK);
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(fired, 0);
    shown.user.press(keyK);
    EXPECT_TRUE(waitUntil([&] { return fired == 1; })) << "the hot key is there again";
    for (const auto key : {keyK, alt, control})
        shown.user.release(key);
}

TEST_F(ShortcutRecorderTest, IsCancelledAndCleared) {
    shown.recorded = InputShortcut{0x7a, 0}.record();
    shown.port.reloadData();
    const std::function<void()> ends[] = {
        [&] { shown.tap({escape}); },
        [&] { shown.click(shown.middleOf(2, name)); },
        [&] { shown.click(shown.middleOf(1, shortcut)); },
        [&] { shown.table.hide(); },
    };
    for (const auto& end : ends) {
        begin();
        shown.tap({keyOfNoCode});
        EXPECT_TRUE(waitUntilItSays("This key cannot be used"));
        shown.port.reloadData();
        EXPECT_EQ(said(), "This key cannot be used") << "a reload leaves it alone";
        end();
        EXPECT_TRUE(waitUntil([] { return !QWidget::keyboardGrabber(); }));
        EXPECT_EQ(said(), "F1");
    }
    EXPECT_EQ(shown.recordings, 0);
    ASSERT_TRUE(waitUntil([] { return !QGuiApplication::focusWindow(); }));
    shown.table.show();
    ASSERT_TRUE(waitUntil([&] { return shown.table.isActiveWindow(); }));
    auto* recorder = shown.widgetAt<QAbstractButton>(1, shortcut);
    auto* clear = recorder->findChild<QAbstractButton*>();
    clear->click();
    EXPECT_EQ(shown.recordings, 1);
    EXPECT_TRUE(shown.recorded.isNothing());
    EXPECT_FALSE(clear->isVisible());
    EXPECT_EQ(said(), "Record shortcut");
    shown.table.setFocus();
    shown.table.setCurrentIndex(shown.table.model()->index(1, shortcut));
    shown.tap({space});
    EXPECT_TRUE(waitUntilItSays("Press the keys")) << "the keyboard is enough";
    shown.tap({f5});
    EXPECT_TRUE(waitUntilItSays("F5"));
}

} // namespace
} // namespace quorvane
