// What becomes of a connection to sway that is lost, and of what is asked while sway is slow: with somebody
// at the other end who answers when the test says so.

#include <QJsonArray>
#include <QLocalServer>
#include <QLocalSocket>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/sway/SwayKeyboard.h"
#include "platform/linux/sway/SwayTree.h"
#include "platform/linux/sway/SwayWindows.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SwayConnectionTest : public testing::Test {
protected:
    SwayConnectionTest() { server_.listen(path_); }

    /// The next connection, which has subscribed.
    void accept() {
        ASSERT_TRUE(waitUntil([this] { return server_.hasPendingConnections(); }));
        client_.reset(server_.nextPendingConnection());
        asked_ = {};
        ASSERT_TRUE(waitForQuestion(SwayRequest::subscribe));
        answer(SwayRequest::subscribe, R"({"success": true})");
    }
    /// Whether that is what is asked for next.
    bool waitForQuestion(SwayRequest type) {
        std::optional<SwayMessages::Message> question;
        waitUntil([&] {
            asked_.append(client_->readAll());
            return (question = asked_.next()).has_value() || asked_.isBroken();
        });
        return question && question->type == static_cast<std::uint32_t>(type);
    }
    void send(const QByteArray& bytes) {
        client_->write(bytes);
        client_->flush();
    }
    void answer(SwayRequest type, const QByteArray& json) { send(swayMessage(type, json)); }
    void tell(SwayEvent type, const QByteArray& json) {
        send(swayMessage(static_cast<SwayRequest>(type), json));
    }
    void lose() {
        client_.reset();
        ASSERT_TRUE(waitUntil([this] { return !sway_.isOpen(); }));
    }

    ScratchFolders folders_;
    const QString path_ = folders_.home() + "/sway";
    QLocalServer server_;
    std::unique_ptr<QLocalSocket> client_;
    SwayMessages asked_;
    SwayIpc sway_{path_.toStdString()};
};

TEST_F(SwayConnectionTest, NothingOfALostConnectionReachesTheNext) {
    int late = 0;
    std::vector<SwayEvent> events;
    const auto listening =
        sway_.happened.connect([&](SwayEvent type, const auto&) { events.push_back(type); });
    sway_.open();
    accept();
    sway_.ask(SwayRequest::getTree, {}, [&](const auto&) { ++late; });
    sway_.ask(SwayRequest::runCommand, QByteArray(4'000'000, ' ')); // More than a socket takes at once.
    send(swayMessage(static_cast<SwayRequest>(SwayEvent::mode), "{}").left(10));
    lose();
    accept();
    answer(SwayRequest::getTree, "{}");
    tell(SwayEvent::window, "{}");
    EXPECT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_THAT(events, ElementsAre(SwayEvent::window));
    EXPECT_EQ(late, 0);
}

TEST_F(SwayConnectionTest, WhatChangesWhileItIsReadIsReadOnceMore) {
    int taken = 0;
    SwayReading reading(sway_, SwayRequest::getTree, [&](const auto&) { ++taken; });
    sway_.open();
    accept();
    ASSERT_TRUE(waitForQuestion(SwayRequest::getTree));
    for (int change = 0; change < 3; ++change)
        reading.readAnew();
    answer(SwayRequest::getTree, "{}");
    ASSERT_TRUE(waitForQuestion(SwayRequest::getTree));
    answer(SwayRequest::getTree, "{}");
    ASSERT_TRUE(waitUntil([&] { return taken == 2; }));
    sway_.ask(SwayRequest::getVersion);
    EXPECT_TRUE(waitForQuestion(SwayRequest::getVersion)) << "and not once more";
}

TEST_F(SwayConnectionTest, TheKeyboardWithTheMostLayoutsStandsForAll) {
    const auto inputs = [](const char* first, const char* active) {
        return QString(R"-([{"xkb_layout_names": ["English (US)"], "xkb_active_layout_index": 0}, {},
                {"xkb_layout_names": [%1"German", "Russian"], "xkb_active_layout_index": %2}])-")
            .arg(first, active)
            .toUtf8();
    };
    SwayKeyboard keyboard(sway_);
    sway_.open();
    accept();
    ASSERT_TRUE(waitForQuestion(SwayRequest::getInputs));
    answer(SwayRequest::getInputs, inputs("", "1"));
    ASSERT_TRUE(waitUntil([&] { return keyboard.layouts().ofGroups.size() == 2; }));
    EXPECT_EQ(keyboard.effectiveGroup(), 1U) << "as it is when it is first heard of";
    keyboard.lockGroup(0);
    ASSERT_TRUE(waitForQuestion(SwayRequest::runCommand));
    EXPECT_EQ(keyboard.effectiveGroup(), 0U);
    lose();
    accept();
    EXPECT_EQ(keyboard.effectiveGroup(), 1U) << "nobody has answered, or will";
    ASSERT_TRUE(waitForQuestion(SwayRequest::getInputs));
    answer(SwayRequest::getInputs, inputs("\"English (US)\", ", "2"));
    EXPECT_TRUE(waitUntil([&] { return keyboard.effectiveGroup() == 2; }));
}

TEST_F(SwayConnectionTest, ATreeTellsWhoIsInFrontBeforeItTellsWhoHasGone) {
    const auto tree = [](int number, const char* id) {
        return QString(R"({"nodes": [{"nodes": [{"id": %1, "pid": 0, "app_id": "%2", "focused": true}]}]})")
            .arg(number)
            .arg(id)
            .toUtf8();
    };
    DesktopEntries entries = DesktopEntries::ofEnvironment();
    SessionApplications applications(entries, nullptr);
    CompositorWindows windows(applications);
    const SwayWindows feed(sway_, windows);
    std::vector<std::string> told;
    const auto note = [&](WorkspaceNotification of, const char* what) {
        return applications.workspace.addObserver(
            of, [&, what](const auto& each) { told.push_back(what + each.bundleIdentifier.value()); });
    };
    const Subscription notes[] = {note(WorkspaceNotification::didActivateApplication, "active "),
                                  note(WorkspaceNotification::didLeaveFront, "left ")};
    sway_.open();
    for (const auto& [number, id] : {std::pair(1, "a"), std::pair(2, "b")}) {
        accept();
        ASSERT_TRUE(waitForQuestion(SwayRequest::getTree));
        answer(SwayRequest::getTree, tree(number, id));
        EXPECT_TRUE(waitUntil(
            [&, wanted = id] { return windows.front() && windows.front()->facts.wmClass == wanted; }));
        lose();
    }
    EXPECT_THAT(told, ElementsAre("active a", "active b"));
    EXPECT_THAT(applications.workspace.runningApplicationsWithBundleIdentifier("a"), IsEmpty());
}

} // namespace
} // namespace quorvane
