#include "support/ProgramTest.h"

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>
#include <utility>

#include "platform/HotKeys.h"

namespace quorvane {
namespace {

const WindowDescription frontWindow{"front.app", "Title", {100, 50, 1000, 600}, 0, true};

/// What the launchers' windows look like, and what only looks like them.
const std::map<std::string, WindowDescription> launcherWindows = {
    {"spotlight", {"Spotlight", "", {400, 200, 600, 60}, 23, true}},
    {"聚焦", {"聚焦", std::nullopt, {400, 200, 101, 60}, 0, true}},
    {"narrow-spotlight", {"Spotlight", "", {400, 200, 100.9, 60}, 23, true}},
    {"hidden-spotlight", {"Spotlight", "", {400, 200, 600, 60}, 23, false}},
    {"alfred", {"Alfred 5", "", {300, 300, 700, 80}, 27, true}},
    {"alfred-on-25", {"Alfred 5", "", {300, 300, 700, 80}, 25, true}},
    {"hidden-alfred", {"Alfred 5", "", {300, 300, 700, 80}, 27, false}},
    {"no-alfred", {"My Alfred", "", {300, 300, 700, 80}, 27, true}},
};

/// What stands before and behind the first separator.
std::pair<std::string, std::string> parted(const std::string& text, char separator) {
    const auto place = std::min(text.find(separator), text.size());
    return {text.substr(0, place), text.substr(std::min(place + 1, text.size()))};
}

PropertyList valueOf(const std::string& text) {
    if (text.empty()) return {};
    if (text == "true" || text == "false") return text == "true";
    return text.find_first_not_of("0123456789") == std::string::npos ? PropertyList(std::stoi(text))
                                                                     : PropertyList(text);
}

} // namespace

ProgramTest::ProgramTest() {
    for (const auto* id : {"us", "ru", "de"})
        desktop_.inputSources.enable({.id = id, .hasIconReference = true});
    desktop_.inputSources.icons = {{"us", SimulatedImage::ofColor({32, 32}, 0, 0, 0)},
                                   {"ru", std::make_shared<SimulatedImage>(
                                              Size{2, 1}, PropertyList::Data{255, 0, 9, 0, 0, 255, 99, 0})}};
    desktop_.windowList.frontToBack = {frontWindow};
    for (const auto& [application, source] : {std::pair{"ru.app", "ru"},
                                              {"de.app", "de"},
                                              {"com.apple.Spotlight", "de"},
                                              {alfredIdentifier, "ru"}})
        setRule(application, source);
    standard_.setBool(true, key::notNeedRemindForAutoStartAtLogin);
    standard_.setBool(true, key::hiddenIconInStatusBar);
}

void ProgramTest::launch() {
    program_.emplace(desktop_.desktop);
    program_->applicationDidFinishLaunching();
}

ProgramTest::Lines ProgramTest::play(const std::string& story) {
    const bool hasPast = story.find('|') != std::string::npos;
    std::istringstream words(hasPast ? story : "launch first.app 1 | " + story);
    for (std::string word; words >> word;) {
        if (word == "|")
            desktop_.journal.take();
        else
            happen(word);
    }
    return desktop_.journal.take();
}

/// What the words do. Each gets what stands behind its colon.
const std::map<std::string, ProgramTest::Event, std::less<>>& ProgramTest::events() {
    using Test = ProgramTest;
    using Text = std::string;
    static const std::map<std::string, Event, std::less<>> all = {
        {"launch", [](Test& test, const Text&) { test.launch(); }},
        {"ignore", [](Test& test, const Text& effect) { test.desktop_.journal.ignore(effect); }},
        // applications
        {"runs", [](Test& test, const Text& id) { test.desktop_.workspace.launch(id); }},
        {"alfred-runs",
         [](Test& test, const Text&) {
             test.desktop_.workspace.launch(alfredIdentifier, ActivationPolicy::accessory);
         }},
        {"companion",
         [](Test& test, const Text&) {
             test.desktop_.workspace.launch(std::string(maker::companionBundleIdentifier));
         }},
        {"companion-quits",
         [](Test& test, const Text&) { test.desktop_.workspace.quit(maker::companionBundleIdentifier); }},
        {"front", [](Test& test, const Text& id) { test.desktop_.workspace.activate(id); }},
        {"nameless",
         [](Test& test, const Text&) {
             test.desktop_.workspace.activate(RunningApplication{.localizedName = "nameless"});
         }},
        {"quits", [](Test& test, const Text& id) { test.desktop_.workspace.quit(id); }},
        {"unhides", [](Test& test, const Text& id) { test.desktop_.workspace.unhide(id); }},
        // windows, screens and keys
        {"closes", [](Test& test, const Text&) { test.desktop_.windowList.frontToBack = {frontWindow}; }},
        {"told",
         [](Test& test, const Text& id) {
             test.desktop_.windowList.tellLauncher(OpenLauncher{id, {300, 200, 700, 80}});
         }},
        {"told-none", [](Test& test, const Text&) { test.desktop_.windowList.tellLauncher(std::nullopt); }},
        {"window-moves",
         [](Test& test, const Text& points) {
             test.desktop_.windowList.frontToBack.front().bounds.x += std::stoi(points);
             test.desktop_.windowList.tellFrontWindowMoved();
         }},
        {"screen",
         [](Test& test, const Text& number) {
             test.desktop_.screens.main = Screen{std::stoi(number), {0, 0, 1440, 900}, 24};
         }},
        {"no-screen", [](Test& test, const Text&) { test.desktop_.screens.main.reset(); }},
        {"mouse",
         [](Test& test, const Text&) { test.desktop_.globalEvents.send({.type = EventType::leftMouseUp}); }},
        {"press",
         [](Test& test, const Text& keyCode) {
             test.desktop_.hotKeys.press({std::stoi(keyCode), ModifierFlag::command});
         }},
        // settings, sources and messages
        {"own",
         [](Test& test, const Text& setting) {
             const auto [key, text] = parted(setting, '=');
             test.standard_.setObject(valueOf(text), key);
         }},
        {"writes",
         [](Test& test, const Text& setting) {
             const auto [key, text] = parted(setting, '=');
             test.desktop_.defaults.writeFromOutside(maker::sharedSuiteName, key, valueOf(text));
         }},
        {"writable",
         [](Test& test, const Text& isWritable) {
             test.desktop_.defaults.setWritable(maker::sharedSuiteName, isWritable == "true");
         }},
        {"another", [](Test& test, const Text& id) { test.desktop_.inputSources.enable({.id = id}); }},
        {"reports",
         [](Test& test, const Text& name) {
             test.desktop_.distributedNotifications.postFromOutside(
                 {name, PropertyList::Dictionary{{"X", 100}, {"Y", 50}, {"Width", 500}}});
         }},
        {"pause",
         [](Test& test, const Text& seconds) {
             test.program_->controlled().pause.pause(seconds.empty() ? std::nullopt
                                                                     : std::optional(std::stod(seconds)));
         }},
        {"resume", [](Test& test, const Text&) { test.program_->controlled().pause.resume(); }},
        // the program's own window
        {"preferences", [](Test& test, const Text&) { test.program_->openPreferences(); }},
        {"reopen",
         [](Test& test, const Text&) { EXPECT_TRUE(test.program_->applicationShouldHandleReopen(false)); }},
    };
    return all;
}

void ProgramTest::happen(const std::string& word) {
    const auto [verb, object] = parted(word, ':');
    if (const auto event = events().find(verb); event != events().end())
        event->second(*this, object);
    else if (const auto window = launcherWindows.find(verb); window != launcherWindows.end())
        desktop_.windowList.frontToBack = {window->second, frontWindow};
    else if (word.starts_with('='))
        desktop_.inputSources.selectFromOutside(word.substr(1));
    else if (word.ends_with(".app"))
        desktop_.workspace.activate(word);
    else if (word.starts_with("0x"))
        desktop_.globalEvents.send(
            {EventType::flagsChanged, std::stoull(word, nullptr, 16), desktop_.runLoop.now()});
    else
        desktop_.runLoop.advance(std::stod(word));
}

std::string switchTo(const std::string& id, const std::string& from, int times) {
    return switchLauncherTo(id, from, times) + "; window in; window out";
}

std::string switchLauncherTo(const std::string& id, const std::string& from, int times) {
    return "suite SwitchTimes = " + std::to_string(times) + "; keep " + from + "; list " + id + "; select " +
           id;
}

void ProgramTest::setRule(const std::string& bundleIdentifier, const std::string& inputSource) {
    const auto suite = openSharedDefaults(desktop_.defaults);
    suite->setObject(suite->objectForKey(key::autoInput)
                         .with(bundleIdentifier, PropertyList::Dictionary{{"id", inputSource}}),
                     key::autoInput);
}

std::ostream& operator<<(std::ostream& stream, const Story& story) {
    return stream << story.what;
}

TEST_P(Stories, Follow) {
    EXPECT_EQ(play(GetParam().happens), GetParam().follows) << GetParam().what << ": " << GetParam().happens;
}

} // namespace quorvane
