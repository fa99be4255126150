#include <gmock/gmock.h>

#include "linux/x11/ServerSession.h"
#include "platform/linux/x11/keyboard/X11EventMonitor.h"

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
    ServerSession session_;
    X11EventMonitor monitor_{*session_.x};
    std::vector<std::uint64_t> flags_;
    Subscription subscription_;
};

TEST_F(X11EventMonitorTest, ToleratesWhatItHasNotSeenAndWhatXdotoolSendsAndFollowsTheKeyboardMap) {
    session_.user.press(leftShift);
    observe();
    session_.user.release(leftControl);
    session_.user.pressTogether({leftControl});
    for (const auto key : {leftControl, leftShift, leftShift})
        session_.user.release(key);
    ASSERT_TRUE(waitForCount(3));
    EXPECT_THAT(flags_, testing::ElementsAre(0x60100, 0x20100, 0x100));

    ASSERT_EQ(QProcess::execute("xdotool", {"key", "ctrl+shift+a"}), 0);
    session_.user.press(leftControl); // Comes after all of it.
    ASSERT_TRUE(waitUntil([&] { return flags_.back() == 0x40100; }));
    session_.user.release(leftControl);
    ASSERT_TRUE(waitUntil([&] { return flags_.back() == 0x100; }));

    ASSERT_TRUE(XServer::setLayouts("us,ru", "", "ctrl:swapcaps"));
    flags_.clear();
    session_.user.pressTogether({capsLock});
    ASSERT_TRUE(waitForCount(2));
    EXPECT_THAT(flags_, testing::ElementsAre(0x40100, 0x100));
}

TEST_F(X11EventMonitorTest, IsToldOfNoOtherKey) {
    const auto type = [&] { session_.user.pressTogether({24, 25, 26, 38}); };
    type(); // The server tells once that another keyboard is used now.
    observe();
    session_.handleWhatHappened();
    int told = 0;
    const auto counting = session_.x->onEvent([&](const auto& event) {
        told += (event.response_type & 0x7f) >= XCB_GE_GENERIC; // of the server's extensions
    });
    type();
    session_.user.pressTogether({leftControl});
    ASSERT_TRUE(waitForCount(2));
    EXPECT_EQ(told, 2);
}

} // namespace
} // namespace quorvane
