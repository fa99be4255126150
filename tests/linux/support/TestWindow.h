#pragma once

#include "platform/linux/x11/windows/WindowStack.h"
#include "virtual-desktop/ChildProcess.h"

namespace quorvane {

/// A program of its own process with one window, shown when the constructor returns. The arguments are those
/// of TestWindowMain.cpp; `program` is a copy of that program with another name. Ends with this object.
class TestWindow {
public:
    explicit TestWindow(const QStringList& arguments, const QString& program = QUORVANE_TEST_WINDOW) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        window_ = process_.startAndReadLine(program, arguments).toUInt();
    }
    ~TestWindow() { end(); }

    xcb_window_t window() const { return window_; }
    int pid() const { return static_cast<int>(process_.processId()); }
    void end() {
        process_.closeWriteChannel();
        process_.waitForFinished(10000);
    }

private:
    ChildProcess process_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
};

/// The windows as the server has them at this moment.
inline std::vector<StackedWindow> stackedWindows(XConnection& x) {
    return WindowStack(x).windows();
}

} // namespace quorvane
