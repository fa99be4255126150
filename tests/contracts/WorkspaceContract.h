#pragma once

#include <algorithm>

#include "contracts/Contract.h"
#include "platform/Workspace.h"

namespace quorvane {

/// Applications are told apart by id.
class WorkspaceBench : public ContractBench {
public:
    virtual Workspace& workspace() = 0;

    virtual void openWindow(const std::string& id) = 0; ///< The first one launches the application. In front.
    virtual void activate(const std::string& id) = 0;
    virtual void hide(const std::string& id) = 0;
    virtual void quit(const std::string& id) = 0;
};

class WorkspaceContract : public Contract<WorkspaceBench> {
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
        return waitUntil([&] { return front() == id; });
    }
    void open(const std::string& id) {
        bench_->openWindow(id);
        ASSERT_TRUE(waitForFront(id));
    }
    bool isRunning(const std::string& id) const {
        const auto all = workspace_.runningApplications();
        const bool isListed = std::ranges::find(all, id, &RunningApplication::bundleIdentifier) != all.end();
        EXPECT_EQ(isListed, !workspace_.runningApplicationsWithBundleIdentifier(id).empty());
        return isListed;
    }

    Workspace& workspace_ = bench_->workspace();
    Ids activated_, unhidden_, launched_, left_;
    std::string frontWhenPosted_;
    Subscription activations_ = noteInto(activated_, WorkspaceNotification::didActivateApplication),
                 unhides_ = noteInto(unhidden_, WorkspaceNotification::didUnhideApplication),
                 launches_ = noteInto(launched_, WorkspaceNotification::didLaunchApplication),
                 departures_ = noteInto(left_, WorkspaceNotification::didLeaveFront);
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
    activations_.end();
    open("gamma");
    EXPECT_THAT(launched_, testing::ElementsAre("alpha", "beta", "gamma"));
    EXPECT_THAT(activated_, testing::ElementsAre("alpha", "beta", "alpha", "beta")) << "until nobody listens";
    EXPECT_THAT(unhidden_, testing::IsEmpty());
}

TEST_P(WorkspaceContract, TellsThatTheApplicationInFrontIsShownAgain) {
    open("alpha");
    open("beta");
    bench_->hide("beta");
    ASSERT_TRUE(waitForFront("alpha"));
    EXPECT_THAT(unhidden_, testing::IsEmpty());
    bench_->activate("beta");
    ASSERT_TRUE(waitUntil([&] { return !unhidden_.empty(); }));
    EXPECT_THAT(unhidden_, testing::ElementsAre("beta"));
    EXPECT_EQ(front(), "beta");
}

TEST_P(WorkspaceContract, ForgetsAnApplicationThatQuit) {
    open("alpha");
    open("beta");
    bench_->quit("beta");
    ASSERT_TRUE(waitUntil([&] { return !isRunning("beta"); }));
    EXPECT_TRUE(isRunning("alpha"));
    bench_->openWindow("beta");
    ASSERT_TRUE(waitUntil([&] { return launched_.size() == 3; }));
    EXPECT_THAT(launched_, testing::ElementsAre("alpha", "beta", "beta"));
}

/// On a desktop where nobody can be in front.
class EmptyFrontContract : public WorkspaceContract {};

TEST_P(EmptyFrontContract, NobodyIsInFrontOnceTheLastOneQuit) {
    open("alpha");
    open("beta");
    bench_->quit("beta");
    ASSERT_TRUE(waitForFront("alpha"));
    bench_->quit("alpha");
    ASSERT_TRUE(waitForFront(""));
    EXPECT_EQ(left_.back(), "alpha");
    open("alpha");
    EXPECT_THAT(activated_, testing::ElementsAre("alpha", "beta", "alpha", "alpha"));
}

} // namespace quorvane
