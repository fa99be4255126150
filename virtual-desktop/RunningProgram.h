#pragma once

#include "virtual-desktop/ChildProcess.h"

namespace quorvane {

/// A program that runs from the beginning, and ends with this object. What it writes is kept.
class RunningProgram {
public:
    /// Throws when it does not start.
    explicit RunningProgram(const QString& program, const QStringList& arguments = {});

    /// Everything it has written so far.
    QString output() { return output_ += QString::fromUtf8(process_.readAllStandardOutput()); }
    QString errors() { return errors_ += QString::fromUtf8(process_.readAllStandardError()); }

    qint64 processId() const { return process_.processId(); }
    bool isRunning() const { return process_.state() == QProcess::Running; }
    bool waitForEnd();
    void terminate() { process_.terminate(); }

    /// -1 when a signal ended it.
    int exitCode() const { return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1; }

private:
    ChildProcess process_;
    QString output_;
    QString errors_;
};

} // namespace quorvane
