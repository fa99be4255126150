#pragma once

#include <QProcess>

namespace quorvane {

/// A program that ends with this object.
class ChildProcess : public QProcess {
public:
    ~ChildProcess() override { end(); }

    /// Starts it and returns its first line, without white space around. Throws when it writes none.
    QByteArray startAndReadLine(const QString& program, const QStringList& arguments);

    /// Asks it to end, and kills it if it does not within ten seconds.
    void end();
};

} // namespace quorvane
