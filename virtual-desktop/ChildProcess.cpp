#include "virtual-desktop/ChildProcess.h"

#include <stdexcept>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

QByteArray ChildProcess::startAndReadLine(const QString& program, const QStringList& arguments) {
    start(program, arguments);
    QByteArray line;
    waitUntil([&] { return (line += readAllStandardOutput()).endsWith('\n'); });
    if (!line.endsWith('\n')) throw std::runtime_error("does not start: " + program.toStdString());
    return line.trimmed();
}

void ChildProcess::end() {
    if (state() == NotRunning) return;
    terminate();
    if (!waitForFinished(10000)) kill();
    waitForFinished();
}

} // namespace quorvane
