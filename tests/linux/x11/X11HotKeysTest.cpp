#include <map>

#include "contracts/HotKeysContract.h"
#include "linux/x11/ServerSession.h"
#include "platform/linux/keyboard/KeyCodes.h"
#include "platform/linux/x11/keyboard/X11HotKeys.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"

namespace quorvane {
namespace {

using Keys = std::vector<std::uint8_t>;
constexpr std::uint8_t leftControl = 37, leftShift = 50, leftAlt = 64, leftSuper = 133, capsLock = 66,
                       numLock = 77, keyJ = 44, keyK = 45, keyF5 = 71;

TEST(KeyCodes, NameEachPositionOnceEitherWay) {
    for (int number = 0; number < 256; ++number) {
        const auto key = xKeycodeOf(number);
        const auto keyCode = keyCodeOf(std::uint8_t(number));
        EXPECT_TRUE(!key || keyCodeOf(*key) == number);
        EXPECT_TRUE(!keyCode || xKeycodeOf(*keyCode) == number);
    }
    const std::map<std::int64_t, std::optional<std::uint8_t>> samples = {
        {0x28, keyK}, {0x0a, 94},  {0x32, 49},          {0x47, numLock},
        {0x5a, 198},  {0x7e, 111}, {0x3b, std::nullopt}};
    for (const auto& [keyCode, key] : samples)
        EXPECT_EQ(xKeycodeOf(keyCode), key) << keyCode;
}

struct Session : ServerSession {
    /// Another program takes a key. False when somebody has it in this very state.
    bool take(std::uint8_t key, int state) {
        const auto request = xcb_grab_key_checked(other->xcb(), 0, x->root(), std::uint16_t(state), key,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        return !XcbReply<xcb_generic_error_t>(xcb_request_check(other->xcb(), request));
    }

    std::unique_ptr<XConnection> other = XConnection::open();
};

class X11HotKeysBench : public HotKeysBench {
public:
    HotKeys& hotKeys() override { return hotKeys_; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }
    void press(const KeyCombination& combination) override {
        Keys keys;
        for (const auto& [flag, key] : modifiers_) {
            if (combination.modifierFlags & flag) keys.push_back(key);
        }
        keys.push_back(*xKeycodeOf(combination.keyCode));
        const Keys locks(combination.modifierFlags & ModifierFlag::capsLock ? 1 : 0, capsLock);
        for (const auto& each : {locks, keys, locks})
            session_.user.pressTogether(each);
        session_.handleWhatHappened();
    }
    void takeFromOutside(const KeyCombination& combination) override {
        ASSERT_EQ(combination.modifierFlags, ModifierFlag::control);
        ASSERT_TRUE(session_.take(*xKeycodeOf(combination.keyCode), XCB_MOD_MASK_CONTROL));
    }

private:
    const std::map<std::uint64_t, std::uint8_t> modifiers_ = {{ModifierFlag::shift, leftShift},
                                                              {ModifierFlag::control, leftControl},
                                                              {ModifierFlag::option, leftAlt},
                                                              {ModifierFlag::command, leftSuper}};
    Session session_;
    X11HotKeys hotKeys_{*session_.x};
};

INSTANTIATE_TEST_SUITE_P(X11, HotKeysContract,
                         testing::Values([] { return std::make_unique<X11HotKeysBench>(); }));

class X11HotKeysTest : public testing::Test {
protected:
    /// How often pressing these keys fires the hot key.
    int firesFor(const Keys& keys) {
        bool isEnd = false;
        const auto end = hotKeys_->registerHotKey({0x60, 0}, [&] { isEnd = true; });
        session_.user.pressTogether(keys);
        session_.user.pressTogether({keyF5});
        EXPECT_TRUE(waitUntil([&] { return isEnd; }));
        return std::exchange(fired_, 0);
    }
    void setMap(const QString& layouts, const QString& options = "") {
        ASSERT_TRUE(XServer::setLayouts(layouts, "", options));
        session_.handleWhatHappened();
    }

    static constexpr auto control = ModifierFlag::control, option = ModifierFlag::option;
    Session session_;
    std::optional<X11HotKeys> hotKeys_{*session_.x};
    int fired_ = 0;
    std::optional<Subscription> k_ = hotKeys_->registerHotKey({0x28, control | option}, [this] { ++fired_; });
};

TEST_F(X11HotKeysTest, FireInEveryLayoutAndWithEveryLock) {
    XkbKeyboard keyboard(*session_.other);
    for (const QString layouts : {"us,ru,de,fr", "us", "ru", "de", "fr"}) {
        setMap(layouts);
        for (unsigned group = 0; group <= layouts.count(','); ++group) {
            keyboard.lockGroup(group);
            keyboard.readGroup();
            ASSERT_EQ(keyboard.effectiveGroup(), group);
            for (const auto& locks : {Keys{}, {capsLock}, {numLock}, {capsLock, numLock}}) {
                session_.user.pressTogether(locks);
                ASSERT_EQ(firesFor({leftControl, leftAlt, keyK}), 1) << layouts.toStdString() << group;
                session_.user.pressTogether(locks);
            }
        }
    }
}

TEST_F(X11HotKeysTest, FireOnceHoweverLongTheyAreHeld) {
    int presses = 0;
    const auto counting = session_.x->onEvent(
        [&](const auto& event) { presses += (event.response_type & 0x7f) == XCB_KEY_PRESS; });
    const auto j = hotKeys_->registerHotKey({0x26, control | option}, [this] { fired_ += 10; });
    for (const auto key : {leftControl, leftAlt, keyK})
        session_.user.press(key);
    ASSERT_TRUE(waitUntil([&] { return presses >= 5; })) << "the server repeats the key";
    EXPECT_EQ(fired_, 1);
    session_.user.press(keyJ);
    session_.user.release(keyK); // Ends the grab, so that the other key's release goes elsewhere.
    session_.user.release(keyJ);
    session_.user.pressTogether({keyJ});
    session_.user.pressTogether({keyK});
    EXPECT_TRUE(waitUntil([&] { return fired_ == 22; })) << fired_;
}

TEST_F(X11HotKeysTest, FollowTheModifiers) {
    const Keys usual{leftControl, leftAlt, keyK};
    setMap("us", "ctrl:swapcaps");
    EXPECT_EQ(firesFor(usual), 0);
    EXPECT_EQ(firesFor({capsLock, leftAlt, keyK}), 1);
    setMap("us", "altwin:swap_alt_win");
    EXPECT_EQ(firesFor(usual), 0);
    EXPECT_EQ(firesFor({leftControl, leftSuper, keyK}), 1);
    setMap("us", "altwin:meta_win"); // Super is left on a key that no keyboard has.
    const auto j = hotKeys_->registerHotKey({0x26, ModifierFlag::command}, [this] { ++fired_; });
    EXPECT_EQ(firesFor({leftSuper, keyJ}), 1);
    setMap("us");
    int changes = 0;
    const auto changed = hotKeys_->changed.connect([&] { ++changes; });
    QProcess::execute("xmodmap", {"-e", "clear mod1", "-e", "clear mod4", "-e", "add mod3 = Alt_L"});
    session_.handleWhatHappened();
    EXPECT_EQ(firesFor(usual), 1);
    EXPECT_GT(changes, 0);
    EXPECT_TRUE(session_.take(keyK, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1)) << "the old bit is free";
    EXPECT_FALSE(hotKeys_->registerHotKey({0x28, ModifierFlag::command}, [] {})) << "no key has it";
}

TEST_F(X11HotKeysTest, AreRefusedAsAWholeAndGivenBack) {
    EXPECT_FALSE(hotKeys_->registerHotKey({0x30, option}, [] {})) << "the window manager's";
    ASSERT_TRUE(session_.take(keyJ, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_LOCK));
    EXPECT_FALSE(hotKeys_->registerHotKey({0x26, control}, [] {}));
    session_.handleWhatHappened();
    EXPECT_TRUE(session_.take(keyJ, XCB_MOD_MASK_CONTROL));

    auto j = hotKeys_->registerHotKey({0x26, option}, [] {});
    constexpr int controlOptionNumLock = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_2;
    EXPECT_FALSE(session_.take(keyK, controlOptionNumLock));
    k_->end();
    session_.handleWhatHappened();
    EXPECT_TRUE(session_.take(keyK, controlOptionNumLock));
    hotKeys_.reset();
    session_.handleWhatHappened();
    EXPECT_TRUE(session_.take(keyJ, XCB_MOD_MASK_1));
    j->end(); // It has outlived them.
}

} // namespace
} // namespace quorvane
