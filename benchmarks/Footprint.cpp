// What the agent costs while nothing happens, and how soon it is ready. Usage: [idle seconds] [starts]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QCoreApplication>

#include "benchmarks/MeasuredDesktop.h"
#include "benchmarks/ProcessFigures.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;
using What = XWatcher::Seen::What;

void measureIdling(unsigned long seconds) {
    MeasuredDesktop desktop(true);
    desktop.startAgentAndWait();
    while (desktop.user().nextSeen(Clock::now() + 2s)) {
    }
    const auto pid = desktop.agentPid();
    std::printf("resident %ld kB; private and written %ld kB\n", memory(pid, "Rss"),
                memory(pid, "Private_Dirty"));
    printIdleWakeUps(pid, seconds);
}

/// From starting the process to the first layout that followed the focus, which changes all the time.
double measureStart() {
    MeasuredDesktop desktop(false);
    const auto start = desktop.startAgent();
    for (int application = 0; Clock::now() < start + 10s; application = 1 - application) {
        desktop.activate(application);
        while (const auto seen = desktop.user().nextSeen(Clock::now() + 2ms)) {
            if (seen->what == What::layout)
                return std::chrono::duration<double, std::milli>(seen->time - start).count();
        }
    }
    return -1;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication qt(argc, argv);
    const auto idleSeconds = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 60;
    const int starts = argc > 2 ? std::atoi(argv[2]) : 11;
    std::vector<double> times;
    for (int i = 0; i < starts; ++i)
        times.push_back(measureStart());
    std::ranges::sort(times);
    if (!times.empty()) {
        std::printf("exec to first switch, %d warm starts: median %.0f ms, longest %.0f ms\n", starts,
                    times[times.size() / 2], times.back());
    }
    measureIdling(idleSeconds);
}
