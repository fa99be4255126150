#pragma once

#include <optional>
#include <string>

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

    /// What a word of a story stands for. A hexadecimal number is a key event with these flags, any other
    /// lets that many seconds pass.
    void happen(const std::string& word) {
        if (word == "companion") {
            launchCompanion();
        } else if (word.starts_with('=')) {
            desktop_.inputSources.selectFromOutside(word.substr(1));
        } else if (word.ends_with(".app")) {
            desktop_.workspace.activate(word);
        } else if (word.starts_with("0x")) {
            desktop_.globalEvents.send(
                {EventType::flagsChanged, std::stoull(word, nullptr, 16), desktop_.runLoop.now()});
        } else {
            desktop_.runLoop.advance(std::stod(word));
        }
    }

    const std::vector<std::string>& selections() { return desktop_.inputSources.selections(); }
    Point indicatorOrigin() const { return desktop_.interfaceFiles.inputIconWindow.origin; }

    SimulatedDesktop desktop_;
    StandardUserDefaults& standard_ = desktop_.defaults.standardUserDefaults();
    std::optional<AppDelegate> program_;
};

} // namespace quorvane
