#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Workspace.h"

namespace quorvane {

/// A desktop and its user, as the suite below needs them. Applications are told apart by id.
class WorkspaceBench {
public:
    virtual ~WorkspaceBench() = default;

    virtual Workspace& workspace() = 0;
    virtual bool waitUntil(const std::function<bool()>& condition) = 0;

    virtual void openWindow(const std::string& id) = 0; ///< The first one launches the application. In front.
    virtual void activate(const std::string& id) = 0;
    virtual void hide(const std::string& id) = 0;
    virtual void quit(const std::string& id) = 0;
};

class WorkspaceContract : public testing::TestWithParam<std::function<std::unique_ptr<WorkspaceBench>()>> {
protected:
    using Ids = std::vector<std::string>;

    Subscription noteInto(Ids& ids, WorkspaceNotification notification) {
        return workspace_.addObserver(notification, [this, &ids](const RunningApplication& application) {
            ids.push_back(application.bundleIdentifier.value_or("none"));
            frontWhenPosted_ = front();
        });
    }
    std::string front() const {
        const auto application = workspace_.frontmostApplication();
        return application ? application->bundleIdentifier.value_or("none") : "";
    }
    bool waitForFront(const std::string& id) {
        return bench_->waitUntil([&] { return front() == id; });
    }
    void open(const std::string& id) {
        bench_->openWindow(id);
        ASSERT_TRUE(waitForFront(id));
    }
    bool isRunning(const std::string& id) const {
        const auto all = workspace_.runningApplications();
        const auto byId = workspace_.runningApplicationsWithBundleIdentifier(id);
        const bool isListed = std::any_of(all.begin(), all.end(),
                                          [&](const auto& each) { return each.bundleIdentifier == id; });
        EXPECT_EQ(isListed, !byId.empty());
        return isListed;
    }

    std::unique_ptr<WorkspaceBench> bench_ = GetParam()();
    Workspace& workspace_ = bench_->workspace();
    Ids activated_;
    Ids unhidden_;
    Ids launched_;
    std::string frontWhenPosted_;
    Subscription subscriptions_[3] = {noteInto(activated_, WorkspaceNotification::didActivateApplication),
                                      noteInto(unhidden_, WorkspaceNotification::didUnhideApplication),
                                      noteInto(launched_, WorkspaceNotification::didLaunchApplication)};
};

TEST_P(WorkspaceContract, TellsALaunchOnceAndEveryActivation) {
    EXPECT_FALSE(isRunning("alpha"));
    open("alpha");
    EXPECT_TRUE(isRunning("alpha"));
    open("beta");
    bench_->activate("alpha");
    ASSERT_TRUE(waitForFront("alpha"));
    open("beta");
    EXPECT_EQ(frontWhenPosted_, "beta");
    EXPECT_THAT(launched_, testing::ElementsAre("alpha", "beta"));
    EXPECT_THAT(activated_, testing::ElementsAre("alpha", "beta", "alpha", "beta"));
    EXPECT_THAT(unhidden_, testing::IsEmpty());
}

TEST_P(WorkspaceContract, TellsThatTheApplicationInFrontIsShownAgain) {
    open("alpha");
    open("beta");
    bench_->hide("beta");
    ASSERT_TRUE(waitForFront("alpha"));
    EXPECT_THAT(unhidden_, testing::IsEmpty());
    bench_->activate("beta");
    ASSERT_TRUE(bench_->waitUntil([&] { return !unhidden_.empty(); }));
    EXPECT_THAT(unhidden_, testing::ElementsAre("beta"));
    EXPECT_EQ(front(), "beta");
}

TEST_P(WorkspaceContract, ForgetsAnApplicationThatQuit) {
    open("alpha");
    open("beta");
    bench_->quit("beta");
    ASSERT_TRUE(bench_->waitUntil([&] { return !isRunning("beta"); }));
    EXPECT_TRUE(isRunning("alpha"));
    bench_->openWindow("beta");
    ASSERT_TRUE(bench_->waitUntil([&] { return launched_.size() == 3; }));
    EXPECT_THAT(launched_, testing::ElementsAre("alpha", "beta", "beta"));
}

TEST_P(WorkspaceContract, TellsNothingToAnEndedSubscription) {
    subscriptions_[0].end();
    open("alpha");
    EXPECT_THAT(activated_, testing::IsEmpty());
    EXPECT_THAT(launched_, testing::ElementsAre("alpha"));
}

} // namespace quorvane
