// What the agent costs while nothing happens, and how soon it is ready. Usage: [idle seconds] [starts]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QThread>

#include "benchmarks/MeasuredDesktop.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;
using What = XWatcher::Seen::What;

/// The number behind a name in a file of /proc.
long valueIn(const QString& path, const QByteArray& name) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    for (const auto& line : file.readAll().split('\n')) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').first().toLong();
    }
    return 0;
}

/// How often the threads of a process have been woken since they began.
long wakeUps(qint64 pid) {
    long sum = 0;
    const auto tasks = QStringLiteral("/proc/%1/task").arg(pid);
    for (const auto& task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += valueIn(tasks + '/' + task + "/status", "voluntary_ctxt_switches");
    return sum;
}

void measureIdling(unsigned long seconds) {
    MeasuredDesktop desktop(true);
    desktop.startAgentAndWait();
    while (desktop.user().nextSeen(Clock::now() + 2s)) {
    }
    const auto pid = desktop.agentPid();
    const auto rollup = QStringLiteral("/proc/%1/smaps_rollup").arg(pid);
    std::printf("resident %ld kB; private and written %ld kB\n", valueIn(rollup, "Rss"),
                valueIn(rollup, "Private_Dirty"));
    const auto before = wakeUps(pid);
    QThread::sleep(seconds);
    std::printf("woken %ld times in %lu idle seconds\n", wakeUps(pid) - before, seconds);
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
