#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "input/CompanionLink.h"
#include "input/InputSwitch.h"
#include "platform/LauncherFacts.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// The input source an application is to have: that of its own rule, else the default one, else none.
/// `autoInput` holds the rules by bundle identifier; whatever in it is malformed counts as not there.
std::optional<std::string> wantedInputSource(const PropertyList& autoInput,
                                             const std::optional<std::string>& bundleIdentifier,
                                             const std::optional<std::string>& defaultInput);

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

private:
    void switchTo(const std::string& target);

    UserDefaultsStores& stores_;
    InputSwitch& inputSwitch_;
    CompanionLink& companion_;
    RunLoop& runLoop_;
    const LauncherFacts& launchers_;
    double switchDelay_;
    std::function<void()> reset_;
};

} // namespace quorvane
