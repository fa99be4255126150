#include <gmock/gmock.h>

#include "linux/x11/X11Session.h"
#include "platform/linux/keyboard/X11EventMonitor.h"

namespace quorvane {
namespace {

class X11EventMonitorTest : public testing::Test {
protected:
    void observe() {
        subscription_ =
            monitor_.addGlobalMonitor(eventMask(EventType::flagsChanged),
                                      [this](const Event& event) { flags_.push_back(event.modifierFlags); });
    }
    bool waitForCount(std::size_t count) {
        return waitUntil([&] { return flags_.size() >= count; });
    }

    static constexpr std::uint8_t leftShift = 50, leftControl = 37, capsLock = 66;
    X11Session session_;
    X11EventMonitor monitor_{*session_.x};
    std::vector<std::uint64_t> flags_;
    Subscription subscription_;
};

TEST_F(X11EventMonitorTest, ToleratesWhatItHasNotSeenAndWhatXdotoolSends) {
    session_.user.press(leftShift);
    observe();
    session_.user.release(leftControl);
    session_.user.press(leftControl);
    session_.user.release(leftControl);
    session_.user.release(leftControl);
    session_.user.release(leftShift);
    session_.user.release(leftShift);
    ASSERT_TRUE(waitForCount(3));
    EXPECT_THAT(flags_, testing::ElementsAre(0x60103, 0x20102, 0x100));

    ASSERT_EQ(QProcess::execute("xdotool", {"key", "ctrl+shift+a"}), 0);
    session_.user.press(leftControl); // Comes after all of it.
    ASSERT_TRUE(waitUntil([&] { return flags_.back() == 0x40101; }));
    session_.user.release(leftControl);
    ASSERT_TRUE(waitUntil([&] { return flags_.back() == 0x100; }));
}

TEST_F(X11EventMonitorTest, FollowsTheKeyboardMap) {
    observe();
    const QStringList swapped{"-rules",  "evdev", "-model",  "pc105",
                              "-layout", "us,ru", "-option", "ctrl:swapcaps"};
    ASSERT_EQ(QProcess::execute("setxkbmap", swapped), 0);
    session_.user.press(capsLock);
    session_.user.release(capsLock);
    ASSERT_TRUE(waitForCount(2));
    EXPECT_THAT(flags_, testing::ElementsAre(0x40101, 0x100));
}

} // namespace
} // namespace quorvane
