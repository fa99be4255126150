#include "virtual-desktop/RunningProgram.h"

#include <stdexcept>

#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

RunningProgram::RunningProgram(const QString& program, const QStringList& arguments) {
    process_.start(program, arguments);
    if (!process_.waitForStarted()) throw std::runtime_error("does not start: " + program.toStdString());
}

bool RunningProgram::waitForEnd() {
    return waitUntil([this] { return process_.state() == QProcess::NotRunning; });
}

} // namespace quorvane
