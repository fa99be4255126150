#pragma once

#include <optional>
#include <string>

#include "platform/Application.h"
#include "platform/ApplicationBundles.h"
#include "platform/TextInputSources.h"
#include "switching/InputDecision.h"
#include "switching/SwitchPause.h"

namespace quorvane {

/// What the status item says about now: "Kate: Russian (rule)".
class StatusToolTip {
public:
    StatusToolTip(const InputDecision& decision, const SwitchPause& pause,
                  const TextInputSources& inputSources, const ApplicationBundles& bundles,
                  const Application& application)
        : decision_(decision)
        , pause_(pause)
        , inputSources_(inputSources)
        , bundles_(bundles)
        , application_(application) {}

    /// The application that was last decided for, the source that is current, and why it is: nothing about
    /// that when it is not the one the application is to have, and that nothing is switched while the user
    /// has paused it. This program's name when there is nothing to say.
    std::string text() const;

private:
    std::string nameOf(const std::string& bundleIdentifier) const;
    std::string textOf(InputReason reason) const;

    const InputDecision& decision_;
    const SwitchPause& pause_;
    const TextInputSources& inputSources_;
    const ApplicationBundles& bundles_;
    const Application& application_;
};

} // namespace quorvane
