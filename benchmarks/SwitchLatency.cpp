// How long the layout takes to follow the focus, and what goes wrong meanwhile. Usage: [switches] [storms]
// [other windows, with the indicator following the front one]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <vector>

#include <QCoreApplication>

#include "benchmarks/MeasuredDesktop.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;
using What = XWatcher::Seen::What;

constexpr std::uint8_t aKey = 38;

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// A pause of random length, so that nothing falls into step with what is measured.
std::chrono::microseconds randomPause() {
    static std::mt19937 random{std::random_device{}()};
    return std::chrono::microseconds(std::uniform_int_distribution(20000, 120000)(random));
}

void drain(MeasuredDesktop& desktop, std::chrono::microseconds pause) {
    const auto end = Clock::now() + pause;
    while (desktop.user().nextSeen(end)) {
    }
}

/// Waits until nothing has happened for a while.
void settle(MeasuredDesktop& desktop) {
    while (desktop.user().nextSeen(Clock::now() + 250ms)) {
    }
}

double percentile(const std::vector<double>& sorted, double share) {
    return sorted[std::min(sorted.size() - 1, static_cast<std::size_t>(share * double(sorted.size())))];
}

void measureLatency(MeasuredDesktop& desktop, int switches) {
    std::vector<double> latencies;
    int missed = 0;
    for (int i = 0; i < switches; ++i) {
        drain(desktop, randomPause());
        const int application = i % 2;
        desktop.activate(application);
        std::optional<Clock::time_point> focused;
        bool switched = false;
        const auto deadline = Clock::now() + 2s;
        while (!(focused && switched)) {
            const auto seen = desktop.user().nextSeen(deadline);
            if (!seen) break;
            if (desktop.isFocus(*seen, application)) focused = seen->time;
            if (seen->what == What::layout && seen->group == application) {
                switched = true;
                // Before the program itself was told of its focus: no wait at all.
                latencies.push_back(focused ? milliseconds(seen->time - *focused) : 0.0);
            }
        }
        if (!switched) ++missed;
    }
    std::ranges::sort(latencies);
    std::printf(
        "FocusIn to layout, %d switches: p50 %.2f ms, p90 %.2f ms, p99 %.2f ms, longest %.2f ms, missed %d\n",
        switches, percentile(latencies, 0.5), percentile(latencies, 0.9), percentile(latencies, 0.99),
        latencies.back(), missed);
}

/// `act` does something after which the layout of the group it is given has to be the current one.
void measureReaction(MeasuredDesktop& desktop, const char* what, int times,
                     const std::function<void(int group)>& act) {
    std::vector<double> latencies;
    desktop.activate(0);
    settle(desktop);
    for (int i = 0; i < times; ++i) {
        drain(desktop, randomPause());
        const int group = 1 - i % 2;
        const auto start = Clock::now();
        act(group);
        while (const auto seen = desktop.user().nextSeen(start + 2s)) {
            if (seen->what != What::layout || seen->group != group) continue;
            latencies.push_back(milliseconds(seen->time - start));
            break;
        }
    }
    desktop.activate(1); // so that the next change is one
    settle(desktop);
    const auto missed = times - static_cast<int>(latencies.size());
    std::ranges::sort(latencies);
    if (latencies.empty()) latencies.push_back(0);
    std::printf("%s to layout, %d times: p50 %.2f ms, p99 %.2f ms, longest %.2f ms, missed %d\n", what, times,
                percentile(latencies, 0.5), percentile(latencies, 0.99), latencies.back(), missed);
}

void measureKeys(MeasuredDesktop& desktop, std::chrono::milliseconds after, int keys) {
    int wrong = 0;
    int lost = 0;
    for (int i = 0; i < keys; ++i) {
        drain(desktop, randomPause());
        const int application = i % 2;
        desktop.activate(application);
        const auto deadline = Clock::now() + 2s;
        for (;;) {
            const auto seen = desktop.user().nextSeen(deadline);
            if (!seen) break;
            if (!desktop.isFocus(*seen, application)) continue;
            // Waiting without using a processor: a user's finger does not, either.
            while (desktop.user().nextSeen(seen->time + after)) {
            }
            desktop.user().pressTogether({aKey});
            break;
        }
        for (;;) {
            const auto seen = desktop.user().nextSeen(deadline);
            if (!seen) {
                ++lost;
                break;
            }
            if (seen->what != What::key) continue;
            if (seen->group != application) ++wrong;
            break;
        }
    }
    std::printf("keys typed %2ld ms after FocusIn: %d of %d in the wrong layout, %d lost\n",
                static_cast<long>(after.count()), wrong, keys, lost);
}

void measureStorms(MeasuredDesktop& desktop, std::chrono::milliseconds gap, int storms) {
    constexpr int changes = 20;
    int wrong = 0;
    for (int storm = 0; storm < storms; ++storm) {
        int application = 0;
        // An odd storm ends where it began, an even one on the other side.
        for (int change = 0; change < changes + storm % 2; ++change) {
            application = 1 - application;
            desktop.activate(application);
            drain(desktop, gap);
        }
        settle(desktop);
        if (int(desktop.user().currentGroup()) != application) ++wrong;
    }
    std::printf("storms of %d focus changes %2ld ms apart: %d of %d ended in the wrong layout\n", changes,
                static_cast<long>(gap.count()), wrong, storms);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication qt(argc, argv);
    const int switches = argc > 1 ? std::atoi(argv[1]) : 1000;
    const int storms = argc > 2 ? std::atoi(argv[2]) : 200;
    const int otherWindows = argc > 3 ? std::atoi(argv[3]) : 0;
    MeasuredDesktop desktop(false, otherWindows);
    desktop.startAgentAndWait();
    settle(desktop);
    measureLatency(desktop, switches);
    measureReaction(desktop, "a pop-up launcher shown or closed", switches / 2,
                    [&](int group) { desktop.showLauncher(group == 1); });
    measureReaction(desktop, "hot key", switches / 2, [&](int group) { desktop.pressHotKey(group); });
    for (const auto after : {1ms, 5ms, 20ms})
        measureKeys(desktop, after, switches / 2);
    for (const auto gap : {0ms, 1ms, 5ms, 20ms})
        measureStorms(desktop, gap, storms / 4);
}
