// Plays a story on the display and prints, for each step, what happened to the input source. Each argument is
// a step:
//   CLASS=SOURCE         brings the program with that window class to the front
//   WHAT=SOURCE@KEYS     presses keys, all held at once: their hardware numbers, with commas in between
//   type:KEYS            types keys, one after the other
// SOURCE is the input source that has to be selected then. Exits 0 only if it was, at every step. What is
// selected is what the X server says, or else the output of the command in QUORVANE_DEMO_SOURCE.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <QCoreApplication>

#include "virtual-desktop/XWatcher.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;
using Clock = XWatcher::Clock;

constexpr auto longestWaitForWindow = 15s;
constexpr auto longestSwitch = 5s;
constexpr auto pauseBetween = 400ms; // so that somebody can watch

constexpr auto pauseBetweenKeys = 120ms;
constexpr std::string_view typing = "type:";

struct Step {
    std::string what;
    std::string wanted;
    std::optional<std::vector<std::uint8_t>> keys; ///< None: `what` is the class of a window.
};

std::vector<std::uint8_t> numbersIn(const std::string& text) {
    std::vector<std::uint8_t> numbers;
    std::istringstream fields(text);
    for (std::string field; std::getline(fields, field, ',');)
        numbers.push_back(static_cast<std::uint8_t>(std::stoi(field)));
    return numbers;
}

Step stepOf(const std::string& argument) {
    const auto equals = argument.find('=');
    const auto at = argument.find('@');
    Step step{argument.substr(0, equals), argument.substr(equals + 1, at - equals - 1), std::nullopt};
    if (at != std::string::npos) step.keys = numbersIn(argument.substr(at + 1));
    return step;
}

/// The id of the layout that typing uses now, as the X server tells it: `xkb:ru`.
std::string currentLayout(XClient& user) {
    const auto rules = user.texts(user.root(), "_XKB_RULES_NAMES"); // rules, model, layouts, …
    std::istringstream layouts(rules.size() > 2 ? rules[2] : std::string());
    std::string layout;
    for (auto left = user.currentGroup() + 1; left > 0; --left)
        std::getline(layouts, layout, ',');
    return "xkb:" + layout;
}

/// The first managed window of that class (either part of WM_CLASS), waited for.
std::optional<xcb_window_t> windowOfClass(XClient& user, const std::string& name) {
    for (const auto deadline = Clock::now() + longestWaitForWindow; Clock::now() < deadline;
         std::this_thread::sleep_for(20ms)) {
        for (const auto window : user.values(user.root(), "_NET_CLIENT_LIST")) {
            if (std::ranges::count(user.texts(window, "WM_CLASS"), name)) return window;
        }
    }
    return std::nullopt;
}

/// What the command says on its one line.
std::string outputOf(const char* command) {
    std::string output;
    if (FILE* pipe = popen(command, "r")) {
        for (int byte = std::fgetc(pipe); byte != EOF && byte != '\n'; byte = std::fgetc(pipe))
            output += static_cast<char>(byte);
        pclose(pipe);
    }
    return output;
}

/// How to ask the input method daemon for its source; null: there is none.
const char* sourceCommand() {
    return std::getenv("QUORVANE_DEMO_SOURCE");
}

std::string currentSource(XClient& user) {
    return sourceCommand() ? outputOf(sourceCommand()) : currentLayout(user);
}

struct Times {
    std::optional<Clock::time_point> began;    ///< The window got the focus, or the keys were pressed.
    std::optional<Clock::time_point> switched; ///< The source changed, the last time.
};

std::string taken(const Times& times) {
    if (!times.began || !times.switched) return "-";
    const std::chrono::duration<double, std::milli> difference(*times.switched - *times.began);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f ms", difference.count());
    return text.data();
}

/// None when there is no such window.
std::optional<Times> play(XWatcher& user, const Step& step) {
    const auto deadline = Clock::now() + longestSwitch;
    Times times;
    std::optional<xcb_window_t> window;
    if (step.keys) {
        times.began = Clock::now();
        user.pressTogether(*step.keys);
    } else {
        window = windowOfClass(user, step.what);
        if (!window) return std::nullopt;
        user.watch(*window);
        user.activate(*window);
    }
    while (!(times.began && (times.switched || sourceCommand()))) {
        const auto seen = user.nextSeen(deadline);
        if (!seen) break;
        if (seen->what == XWatcher::Seen::What::focusIn && seen->window == window) times.began = seen->time;
        if (seen->what == XWatcher::Seen::What::layout) times.switched = seen->time;
    }
    // A daemon is asked, which takes some milliseconds itself.
    while (sourceCommand() && !times.switched && Clock::now() < deadline)
        if (currentSource(user) == step.wanted) times.switched = Clock::now();
    return times;
}

/// True when the wanted source was selected.
bool show(XWatcher& user, const Step& step) {
    const auto before = currentSource(user);
    const auto times = play(user, step);
    std::this_thread::sleep_for(pauseBetween);
    const auto after = currentSource(user);
    const bool isRight = times && after == step.wanted;
    std::printf("%-18s %-14s %-14s %-14s %9s  %s\n", step.what.c_str(), step.wanted.c_str(), before.c_str(),
                after.c_str(), taken(times.value_or(Times{})).c_str(), isRight ? "" : "WRONG");
    std::fflush(stdout);
    return isRight;
}

void type(XWatcher& user, const std::string& keys) {
    for (const auto key : numbersIn(keys)) {
        user.pressTogether({key});
        std::this_thread::sleep_for(pauseBetweenKeys);
    }
}

/// True when all is as it has to be.
bool playAndShow(XWatcher& user, const std::string& argument) {
    if (!argument.starts_with(typing)) return show(user, stepOf(argument));
    type(user, argument.substr(typing.size()));
    return true;
}

} // namespace

int main(int argc, char** argv) try {
    const QCoreApplication qt(argc, argv);
    XWatcher user;
    bool allRight = argc > 1;
    for (int i = 1; i < argc; ++i)
        allRight = playAndShow(user, argv[i]) && allRight;
    return allRight ? 0 : 1;
} catch (const std::runtime_error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
