// Plays a story on the display and prints, for each step, what happened to the keyboard layout. Each argument
// is a step:
//   CLASS=SOURCE         brings the program with that window class to the front
//   WHAT=SOURCE@KEYS     presses keys: their numbers on the hardware, all held at once, with commas in
//   between
// SOURCE is the input source that has to be selected then. Exits 0 only if it was, at every step.

#include <array>
#include <cstdio>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/demo/FocusedWindows.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;

constexpr auto longestSwitch = 5s;
constexpr auto pauseBetween = 400ms; // so that somebody can watch

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

std::string taken(const FocusedWindows::Times& times) {
    if (!times.began || !times.switched) return "-";
    const std::chrono::duration<double, std::milli> difference(*times.switched - *times.began);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f ms", difference.count());
    return text.data();
}

/// None when there is no such window.
std::optional<FocusedWindows::Times> play(FocusedWindows& desktop, const Step& step) {
    const auto deadline = FocusedWindows::Clock::now() + longestSwitch;
    if (step.keys) return desktop.pressAndWatch(*step.keys, deadline);
    const auto window = desktop.windowOfClass(step.what);
    if (!window) return std::nullopt;
    return desktop.activateAndWatch(*window, deadline);
}

/// True when the wanted source was selected.
bool show(FocusedWindows& desktop, const Step& step) {
    const auto before = desktop.currentLayout();
    const auto times = play(desktop, step);
    std::this_thread::sleep_for(pauseBetween);
    const auto after = desktop.currentLayout();
    const bool isRight = times && after == step.wanted;
    std::printf("%-18s %-8s %-8s %-8s %9s  %s\n", step.what.c_str(), step.wanted.c_str(), before.c_str(),
                after.c_str(), taken(times.value_or(FocusedWindows::Times{})).c_str(),
                isRight ? "" : "WRONG");
    std::fflush(stdout);
    return isRight;
}

} // namespace

int main(int argc, char** argv) {
    FocusedWindows desktop;
    if (!desktop.isConnected()) {
        std::fprintf(stderr, "no X server\n");
        return 1;
    }
    bool allRight = argc > 1;
    for (int i = 1; i < argc; ++i)
        allRight = show(desktop, stepOf(argv[i])) && allRight;
    return allRight ? 0 : 1;
}
