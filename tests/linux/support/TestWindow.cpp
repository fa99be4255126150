#include "linux/support/TestWindow.h"

#include <stdexcept>

#include "linux/support/WaitUntil.h"

namespace quorvane {

TestWindow::TestWindow(const QStringList& arguments, const QString& program) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program, arguments);
    QByteArray line;
    waitUntil([&] { return (line += process_.readAllStandardOutput()).endsWith('\n'); });
    window_ = line.trimmed().toUInt();
    if (window_ == XCB_WINDOW_NONE) throw std::runtime_error("the test window does not start");
}

void TestWindow::end() {
    process_.closeWriteChannel();
    process_.waitForFinished(10000);
}

} // namespace quorvane
