#include "benchmarks/ProcessFigures.h"

#include <cstdio>
#include <map>

#include <QDir>
#include <QFile>
#include <QThread>

namespace quorvane {
namespace {

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

/// How often each thread of a process has been woken since it began.
std::map<QString, long> wakeUpsByThread(qint64 process) {
    std::map<QString, long> wakeUps;
    const auto threads = QStringLiteral("/proc/%1/task").arg(process);
    for (const auto& thread : QDir(threads).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        wakeUps[thread] = valueIn(threads + '/' + thread + "/status", "voluntary_ctxt_switches");
    return wakeUps;
}

} // namespace

long memory(qint64 process, const QByteArray& name) {
    return valueIn(QStringLiteral("/proc/%1/smaps_rollup").arg(process), name);
}

void printIdleWakeUps(qint64 process, unsigned long seconds) {
    auto before = wakeUpsByThread(process);
    QThread::sleep(seconds);
    long sum = 0;
    for (const auto& [thread, wakeUps] : wakeUpsByThread(process)) {
        sum += wakeUps - before[thread];
        before.erase(thread);
    }
    sum += static_cast<long>(before.size()); // They were woken to end.
    std::printf("woken %ld times in %lu idle seconds\n", sum, seconds);
    std::fflush(stdout);
}

} // namespace quorvane
