#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {

inline constexpr auto alfredIdentifier = "com.runningwithcrayons.Alfred-5";

/// The whole program on the simulated desktop, which has the input sources us (current, monochrome icon), ru
/// (coloured icon) and de (no icon), a window of 1000 by 600 points that belongs to front.app, and rules:
/// ru.app and Alfred get ru, de.app and Spotlight get de. The status item is hidden.
class ProgramTest : public testing::Test {
protected:
    using Lines = std::vector<std::string>;

    ProgramTest();

    void launch();

    /// Lets a story happen, word by word, and returns what the journal has of it. What stands before a bar
    /// came before; without one, the program was started and another application came to the front.
    ///
    /// A number lets that many seconds pass; one in hexadecimal is a key event with these flags; "x.app"
    /// comes to the front; "=x" is an input source that somebody else selects; the other words are in the
    /// source.
    Lines play(const std::string& story);

    /// One word of a story: what happens and, behind a colon, to what.
    void happen(const std::string& word);

    /// Has the application switched to the input source, as if the rule had been made long ago.
    void setRule(const std::string& bundleIdentifier, const std::string& inputSource);

    /// What another program reads in the shared suite.
    PropertyList shared(std::string_view key) {
        return desktop_.defaults.readFromOutside(maker::sharedSuiteName, key);
    }

    using Event = std::function<void(ProgramTest&, const std::string&)>;
    static const std::map<std::string, Event, std::less<>>& events();

    SimulatedDesktop desktop_;
    StandardUserDefaults& standard_ = desktop_.defaults.standardUserDefaults();
    std::optional<AppDelegate> program_;
};

/// What one switch, the first or a later one, looks like in the journal.
std::string switchTo(const std::string& id, const std::string& from = "us", int times = 1);

/// The same for a launcher, which needs no reset.
std::string switchLauncherTo(const std::string& id, const std::string& from = "us", int times = 1);

/// One story, and the lines of the journal that follow from it.
struct Story {
    const char* what;
    std::string happens;
    std::vector<std::string> follows;
};

std::ostream& operator<<(std::ostream& stream, const Story& story);

/// The table test of stories; each area has its own table.
class Stories : public ProgramTest, public testing::WithParamInterface<Story> {};

} // namespace quorvane
