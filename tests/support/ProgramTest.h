#pragma once

#include <optional>

#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

/// A test of the whole program on the simulated desktop.
class ProgramTest : public testing::Test {
protected:
    ProgramTest() { standard_.setBool(true, key::notNeedRemindForAutoStartAtLogin); }

    void launch() {
        program_.emplace(desktop_.desktop);
        program_->applicationDidFinishLaunching();
    }

    /// Has the application switched to the input source, as if the rule had been made long ago.
    void setRule(const std::string& bundleIdentifier, const std::string& inputSource) {
        const auto shared = openSharedDefaults(desktop_.defaults);
        shared->setObject(shared->objectForKey(key::autoInput)
                              .with(bundleIdentifier, PropertyList::Dictionary{{"id", inputSource}}),
                          key::autoInput);
    }

    void launchCompanion() { desktop_.workspace.launch(std::string(maker::companionBundleIdentifier)); }

    const std::vector<std::string>& selections() { return desktop_.inputSources.selections(); }
    Point indicatorOrigin() const { return desktop_.interfaceFiles.inputIconWindow.origin; }

    SimulatedDesktop desktop_;
    StandardUserDefaults& standard_ = desktop_.defaults.standardUserDefaults();
    std::optional<AppDelegate> program_;
};

} // namespace quorvane
