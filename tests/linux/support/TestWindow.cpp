#include "linux/support/TestWindow.h"

namespace quorvane {

TestWindow::TestWindow(const QStringList& arguments, const QString& program) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    window_ = process_.startAndReadLine(program, arguments).toUInt();
}

void TestWindow::end() {
    process_.closeWriteChannel();
    process_.waitForFinished(10000);
}

} // namespace quorvane
