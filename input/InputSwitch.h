#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "input/CompanionLink.h"
#include "input/OpenLaunchers.h"
#include "platform/LauncherFacts.h"
#include "platform/TextInputSources.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

namespace quorvane {

/// Which input source is selected, and the one place where another one is.
class InputSwitch {
public:
    /// `reset` makes a selection reach the application in front.
    InputSwitch(TextInputSources& inputSources, UserDefaultsStores& stores, const Workspace& workspace,
                const LauncherFacts& launchers, const OpenLaunchers& openLaunchers, CompanionLink& companion,
                std::function<void()> reset)
        : inputSources_(inputSources)
        , stores_(stores)
        , workspace_(workspace)
        , launchers_(launchers)
        , openLaunchers_(openLaunchers)
        , companion_(companion)
        , reset_(std::move(reset)) {}

    /// "" when there is none, which no rule can name.
    std::string currentInputSourceID() const;

    /// Counts a switch and selects the source. An id that no enabled source has selects nothing, but counts.
    void selectInputSource(std::string_view id);

    /// A hot key's request: nothing when the source is current already or a launcher is in front; the
    /// companion's job while it runs.
    void changeInputTo(std::string_view id);

private:
    bool isLauncherInFront() const;

    TextInputSources& inputSources_;
    UserDefaultsStores& stores_;
    const Workspace& workspace_;
    const LauncherFacts& launchers_;
    const OpenLaunchers& openLaunchers_;
    CompanionLink& companion_;
    std::function<void()> reset_;

    /// The layout that was current just before the last selection.
    std::optional<InputSource> keptLayoutSource_;
};

} // namespace quorvane
