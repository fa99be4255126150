#pragma once

#include <functional>

namespace quorvane {

/// Makes sure that the program runs once in a session.
class SingleInstance {
public:
    virtual ~SingleInstance() = default;

    enum class IfAnotherRuns { leaveIt, askItToReopen };

    /// True when this process is the one instance from now on, false when another one is.
    virtual bool becomeTheOne(IfAnotherRuns ifAnotherRuns) = 0;

    /// Waits, a few seconds at most, until the instance that runs has ended. For a relaunch, where the old
    /// instance is on its way out: what that one was still asked for is this one's to do.
    virtual void waitForTheOtherToEnd() = 0;

    /// The user has launched the program again: told now if that was so before, and from now on.
    virtual void onReopen(const std::function<void()>& handler) = 0;
};

} // namespace quorvane
