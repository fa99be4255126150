// Brings programs to the front in turn and prints, for each, what happened to the keyboard layout. Each
// argument is CLASS=SOURCE: a program's window class and the input source its rule asks for. Exits 0 only if
// every program got its source.

#include <array>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/demo/FocusedWindows.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;

constexpr int rounds = 3;
constexpr auto longestSwitch = 2s;
constexpr auto pauseBetween = 400ms; // so that somebody can watch

struct Subject {
    std::string name;
    std::string wanted;
    xcb_window_t window;
};

std::string taken(const FocusedWindows::Times& times) {
    if (!times.focused || !times.switched) return "-";
    const std::chrono::duration<double, std::milli> difference(*times.switched - *times.focused);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f ms", difference.count());
    return text.data();
}

/// True when the program got the source it wants.
bool show(FocusedWindows& desktop, const Subject& subject) {
    const auto before = desktop.currentLayout();
    desktop.activate(subject.window);
    const auto times = desktop.watch(subject.window, FocusedWindows::Clock::now() + longestSwitch);
    std::this_thread::sleep_for(pauseBetween);
    const auto after = desktop.currentLayout();
    const bool isRight = times.focused && after == subject.wanted;
    std::printf("%-18s %-8s %-8s %-8s %9s  %s\n", subject.name.c_str(), subject.wanted.c_str(),
                before.c_str(), after.c_str(), taken(times).c_str(), isRight ? "" : "WRONG");
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
    std::vector<Subject> subjects;
    for (int i = 1; i < argc; ++i) {
        const std::string argument(argv[i]);
        const auto equals = argument.find('=');
        const auto name = argument.substr(0, equals);
        const auto window = desktop.windowOfClass(name);
        if (equals == std::string::npos || !window) {
            std::fprintf(stderr, "no window of class %s\n", name.c_str());
            return 1;
        }
        subjects.push_back({name, argument.substr(equals + 1), *window});
    }
    std::printf("%-18s %-8s %-8s %-8s %s\n", "front application", "wanted", "before", "after",
                "after the focus");
    bool allRight = !subjects.empty();
    for (int round = 0; round < rounds; ++round) {
        for (const auto& subject : subjects)
            allRight = show(desktop, subject) && allRight;
    }
    return allRight ? 0 : 1;
}
