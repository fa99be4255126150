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
#include "platform/WallClock.h"
#include "switching/SwitchPause.h"
#include "switching/WantedInput.h"

namespace quorvane {

/// One decision, and what came of it.
struct Decision {
    enum class Outcome {
        nothingWanted,
        isCurrent,
        isPaused,       ///< The user wants no switch now.
        companionAsked, ///< The companion application switches.
        switched,       ///< Or will be, once an ordinary application takes a new source.
    };

    std::optional<std::string> application; ///< None for one without a bundle identifier.
    WantedInput wanted;
    Outcome outcome = Outcome::nothingWanted;
    double madeAt = 0;  ///< Seconds since 1970.
    double seconds = 0; ///< How long it took, a selection that was made at once included.
};

/// Decides which input source an application wants and sees that it gets it. Every automatic switch goes
/// through here.
class InputDecision {
public:
    /// `switchDelay`: how long an ordinary application needs, after it came to the front, until it takes a
    /// new source; in seconds. `reset` follows each such switch.
    InputDecision(UserDefaultsStores& stores, InputSwitch& inputSwitch, CompanionLink& companion,
                  const SwitchPause& pause, RunLoop& runLoop, const WallClock& clock,
                  const LauncherFacts& launchers, double switchDelay, std::function<void()> reset)
        : stores_(stores)
        , inputSwitch_(inputSwitch)
        , companion_(companion)
        , pause_(pause)
        , runLoop_(runLoop)
        , clock_(clock)
        , launchers_(launchers)
        , switchDelay_(switchDelay)
        , reset_(std::move(reset)) {}

    /// Launchers are switched at once, since their search field takes keys at once; ordinary applications
    /// after the delay. A later decision does not take back an earlier one: both selections are made, the
    /// later one last. While the user has paused it, nothing is selected.
    void decide(const std::optional<std::string>& bundleIdentifier);

    /// What it would decide for the application now.
    WantedInput wantedBy(const std::optional<std::string>& bundleIdentifier) const;

    /// None before the first one.
    const std::optional<Decision>& lastDecision() const { return lastDecision_; }

    /// Decides again for the application of the last decision, if there was one.
    void decideAgain();

    Signal<> decided; ///< Each time, whatever came of it.

private:
    Decision::Outcome giveInput(const WantedInput& wanted, bool isForLauncher);
    void switchTo(const std::string& target);

    UserDefaultsStores& stores_;
    InputSwitch& inputSwitch_;
    CompanionLink& companion_;
    const SwitchPause& pause_;
    RunLoop& runLoop_;
    const WallClock& clock_;
    const LauncherFacts& launchers_;
    double switchDelay_;
    std::function<void()> reset_;
    std::optional<Decision> lastDecision_;
};

} // namespace quorvane
