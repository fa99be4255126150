#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "input/CompanionLink.h"
#include "input/InputSwitch.h"
#include "platform/LauncherFacts.h"
#include "platform/RunLoop.h"
#include "platform/Signal.h"
#include "platform/UserDefaults.h"
#include "switching/WantedInput.h"

namespace quorvane {

/// Decides which input source an application wants and sees that it gets it. Every automatic switch goes
/// through here.
class InputDecision {
public:
    /// `switchDelay`: how long an ordinary application needs, after it came to the front, until it takes a
    /// new source; in seconds. `reset` follows each such switch.
    InputDecision(UserDefaultsStores& stores, InputSwitch& inputSwitch, CompanionLink& companion,
                  RunLoop& runLoop, const LauncherFacts& launchers, double switchDelay,
                  std::function<void()> reset)
        : stores_(stores)
        , inputSwitch_(inputSwitch)
        , companion_(companion)
        , runLoop_(runLoop)
        , launchers_(launchers)
        , switchDelay_(switchDelay)
        , reset_(std::move(reset)) {}

    /// Launchers are switched at once, since their search field takes keys at once; ordinary applications
    /// after the delay. A later decision does not take back an earlier one: both selections are made, the
    /// later one last.
    void decide(const std::optional<std::string>& bundleIdentifier);

    /// What it would decide for the application now.
    WantedInput wantedBy(const std::optional<std::string>& bundleIdentifier) const;

    /// The application that it last decided for; none before the first one.
    const std::optional<std::string>& lastApplication() const { return lastApplication_; }

    Signal<> decided; ///< Each time, whatever came of it.

private:
    void giveWantedInput();
    void switchTo(const std::string& target);

    UserDefaultsStores& stores_;
    InputSwitch& inputSwitch_;
    CompanionLink& companion_;
    RunLoop& runLoop_;
    const LauncherFacts& launchers_;
    double switchDelay_;
    std::function<void()> reset_;
    std::optional<std::string> lastApplication_;
};

} // namespace quorvane
