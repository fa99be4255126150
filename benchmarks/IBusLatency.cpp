// How long IBus takes to do what the program asks, and how soon it is there again. Usage: [selections]
// [restarts]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QCoreApplication>
#include <QElapsedTimer>

#include "platform/linux/input-methods/ibus/IBusInputSources.h"
#include "virtual-desktop/IBusDaemon.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/SessionBus.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XServer.h"

namespace {

using namespace quorvane;

double millisecondsOf(const QElapsedTimer& timer) {
    return double(timer.nsecsElapsed()) / 1e6;
}

void report(const char* what, std::vector<double> times) {
    if (times.empty()) return;
    std::ranges::sort(times);
    const auto percentile = [&](double share) {
        return times[std::min(times.size() - 1, std::size_t(share * double(times.size())))];
    };
    std::printf("%s: %zu times, p50 %.2f ms, p99 %.2f ms, longest %.2f ms\n", what, times.size(),
                percentile(0.5), percentile(0.99), times.back());
}

/// From the request until another client of the daemon hears of the engine.
std::vector<double> measureSelections(IBusInputSources& sources, IBusDaemon& daemon, int count) {
    const std::vector<InputSource> wishes = sources.createInputSourceList();
    std::vector<double> times;
    bool isHeard = false;
    QElapsedTimer timer;
    const auto hearing = QObject::connect(&daemon, &IBusDaemon::globalEngineChanged, &daemon, [&] {
        if (!std::exchange(isHeard, true)) times.push_back(millisecondsOf(timer));
    });
    for (int i = 0; i < count + int(wishes.size()); ++i) {
        isHeard = false;
        timer.start();
        sources.selectInputSource(wishes[std::size_t(i) % wishes.size()]);
        if (!waitUntil([&] { return isHeard; })) std::puts("missed");
        if (i + 1 == int(wishes.size())) times.clear(); // Now every engine runs.
    }
    QObject::disconnect(hearing);
    return times;
}

/// From the start of its process.
std::vector<double> measureRestarts(IBusInputSources& sources, IBusDaemon& daemon, int count) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        daemon.kill();
        waitUntil([&] { return !sources.isAvailable(); });
        QElapsedTimer timer;
        timer.start();
        const auto hearing =
            sources.availabilityChanged.connect([&] { times.push_back(millisecondsOf(timer)); });
        daemon.start();
        if (!waitUntil([&] { return sources.isAvailable(); })) std::puts("missed");
    }
    return times;
}

} // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    const ScratchFolders folders;
    const XServer server("us,ru");
    const SessionBus bus;
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    IBusDaemon::setPreloadEngines({"xkb:us::eng", "libpinyin", "xkb:ru::rus", "hangul"});
    const auto x = XConnection::open();
    const auto noIcon = [](const auto&) { return nullptr; };
    XkbInputSources layouts(*x, noIcon);
    IBusInputSources sources(layouts, {.draw = noIcon, .find = noIcon});
    IBusDaemon daemon;
    daemon.start();
    if (!waitUntil([&] { return sources.isAvailable(); })) return EXIT_FAILURE;
    const auto number = [&](int place, int otherwise) {
        return count > place ? std::atoi(arguments[place]) : otherwise;
    };
    report("from a selection to the news of it", measureSelections(sources, daemon, number(1, 200)));
    report("from the start of a daemon to its being available",
           measureRestarts(sources, daemon, number(2, 20)));
    return EXIT_SUCCESS;
}
