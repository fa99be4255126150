// How soon a script that selects an input source has it, and is done. Usage: [times]

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <spawn.h>
#include <sys/wait.h>

#include "benchmarks/MeasuredDesktop.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;

double millisecondsSince(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, std::milli>(end - start).count();
}

/// Whether the tool succeeded.
bool select(std::string source) {
    std::string tool = QUORVANECTL, command = "select";
    const std::array<char*, 4> arguments{tool.data(), command.data(), source.data(), nullptr};
    pid_t child = 0;
    int status = 1;
    if (posix_spawn(&child, tool.c_str(), nullptr, nullptr, arguments.data(), environ) != 0) return false;
    return waitpid(child, &status, 0) == child && status == 0;
}

void print(const char* what, std::vector<double> times) {
    std::ranges::sort(times);
    const auto at = [&](std::size_t percent) { return times[times.size() * percent / 100]; };
    if (!times.empty())
        std::printf("select to %s, %zu times: p50 %.2f ms, p99 %.2f ms, longest %.2f ms\n", what,
                    times.size(), at(50), at(99), times.back());
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication qt(argc, argv);
    const int times = argc > 1 ? std::atoi(argv[1]) : 100;
    MeasuredDesktop desktop(false);
    desktop.startAgentAndWait();
    select("xkb:us");
    std::vector<double> layouts, ends;
    int missed = 0;
    for (int i = 0; i < times; ++i) {
        while (desktop.user().nextSeen(Clock::now() + 20ms)) {
        }
        const auto start = Clock::now();
        const bool isSelected = select(i % 2 ? "xkb:us" : "xkb:ru");
        ends.push_back(millisecondsSince(start, Clock::now()));
        const auto seen = desktop.user().nextSeen(Clock::now() + 1s);
        if (isSelected && seen && seen->what == XWatcher::Seen::What::layout)
            layouts.push_back(millisecondsSince(start, seen->time));
        else
            ++missed;
    }
    print("layout", layouts);
    print("the tool's end", ends);
    std::printf("missed %d\n", missed);
    return missed == 0 ? 0 : 1;
}
