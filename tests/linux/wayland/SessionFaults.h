#pragma once

// What every session of a compositor must live through.

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/wayland/SessionBench.h"
#include "platform/GlobalEventMonitor.h"

namespace quorvane {

class SessionFaults : public testing::TestWithParam<MakeDesktop> {
protected:
    std::string front() {
        const auto application = desktop_->applications.workspace.frontmostApplication();
        return application ? application->bundleIdentifier.value_or("") : "";
    }
    std::string selected() {
        const auto source = parts_.layouts.copyCurrentKeyboardInputSource();
        return source ? source->id : "";
    }
    bool select(const std::string& id) { return parts_.layouts.selectInputSource({.id = id}); }
    bool waitForLayouts() {
        return waitUntil([&] { return parts_.layouts.createInputSourceList().size() == 3; });
    }
    bool f5Fires() {
        const int before = fired_;
        return waitUntil([&] {
            desktop_->server().pressTogether({71});
            return fired_ > before;
        });
    }

    std::unique_ptr<SessionDesktop> desktop_ = GetParam()();
    SessionParts parts_ = desktop_->parts();
    int fired_ = 0;
    std::optional<Subscription> f5_ = parts_.hotKeys.registerHotKey({0x60, 0}, [this] { ++fired_; });
};

TEST_P(SessionFaults, ACompositorThatHangsIsNotWaitedFor) {
    ASSERT_TRUE(waitForLayouts());
    std::optional<WaylandWindow> window;
    window.emplace("alpha", "alpha");
    ASSERT_TRUE(waitUntil([&] { return front() == "alpha"; }));
    desktop_->server().stop();
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(select("xkb:ru"));
    EXPECT_EQ(selected(), "xkb:ru");
    const auto more = parts_.hotKeys.registerHotKey({0x61, 0}, [] {});
    QCoreApplication::processEvents();
    const auto waited = time.elapsed(); // milliseconds
    desktop_->server().resume();
    EXPECT_LT(waited, 100);
    EXPECT_TRUE(waitUntil([&] { return desktop_->server().layout() == 1; }));
    EXPECT_TRUE(f5Fires());
    EXPECT_EQ(selected(), "xkb:ru");
}

TEST_P(SessionFaults, WorksOnWithTheNextCompositor) {
    ASSERT_TRUE(waitForLayouts());
    std::optional<WaylandWindow> window;
    window.emplace("alpha", "alpha");
    ASSERT_TRUE(waitUntil([&] { return front() == "alpha"; }));
    desktop_->server().stop();
    ASSERT_TRUE(select("xkb:de")); // It never hears it,
    desktop_->server().kill();     // nor tells that its windows are closed.
    window.reset();
    desktop_->server().restart();
    window.emplace("beta", "beta");
    EXPECT_TRUE(waitUntil([&] { return front() == "beta"; }));
    EXPECT_TRUE(desktop_->applications.workspace.runningApplicationsWithBundleIdentifier("alpha").empty());
    ASSERT_TRUE(waitForLayouts());
    EXPECT_TRUE(waitUntil([&] { return select("xkb:ru") && desktop_->server().layout() == 1; }));
    desktop_->server().selectLayout(0);
    EXPECT_TRUE(waitUntil([&] { return selected() == "xkb:us"; })) << "no answer is waited for any more";
    EXPECT_TRUE(f5Fires());
}

TEST_P(SessionFaults, ALauncherLeavesTheApplicationInFront) {
    WaylandWindow window("alpha", "alpha");
    ASSERT_TRUE(waitUntil([&] { return front() == "alpha"; }));
    QElapsedTimer quiet; // So that nothing is still looked at because of that.
    quiet.start();
    waitUntil([&] { return quiet.hasExpired(500); });
    std::vector<std::string> open;
    const auto launchers = parts_.windowList.addLauncherObserver(
        [&](const auto& launcher) { open.push_back(launcher ? launcher->bundleIdentifier : ""); });
    {
        ChildProcess launcher;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_DATA_DIRS", "/usr/share"); // GTK's own settings
        launcher.setProcessEnvironment(environment);
        launcher.start("wofi", {"--show", "run"});
        EXPECT_TRUE(waitUntil([&] { return !open.empty(); }));
        EXPECT_EQ(front(), "alpha");
    }
    EXPECT_TRUE(waitUntil([&] { return open.size() > 1; }));
    EXPECT_THAT(open, testing::ElementsAre("wofi", ""));
    EXPECT_EQ(front(), "alpha");
}

TEST_P(SessionFaults, AHotKeyStaysAtItsPositionWhateverTheLayouts) {
    constexpr std::uint8_t control = 37, q = 24;
    bool isFired = false;
    const auto hotKey = parts_.hotKeys.registerHotKey({0x0C, ModifierFlag::control}, [&] { isFired = true; });
    desktop_->setLayouts("fr,us", ","); // Which types an A there.
    ASSERT_TRUE(waitUntil([&] { return parts_.layouts.createInputSourceList().size() == 2; }));
    ASSERT_TRUE(select("xkb:fr") && waitUntil([&] { return desktop_->server().layout() == 0; }));
    EXPECT_TRUE(waitUntil([&] {
        desktop_->server().pressTogether({control, q});
        return isFired;
    }));
}

TEST_P(SessionFaults, NothingIsLeftInTheCompositor) {
    WaylandWindow window("alpha", "alpha");
    ASSERT_TRUE(f5Fires());
    constexpr KeyCombination taken{0x26, ModifierFlag::control};
    desktop_->takeKeys(taken);
    bool isRefused = false;
    const auto change = parts_.hotKeys.changed.connect([&] { isRefused = true; });
    const auto refused = parts_.hotKeys.registerHotKey(taken, [] {});
    EXPECT_TRUE(waitUntil([&] { return isRefused; }));
    desktop_->endSession();
    EXPECT_FALSE(desktop_->hasOurs());
}

} // namespace quorvane
