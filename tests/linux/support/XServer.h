#pragma once

#include <QProcess>

namespace quorvane {

/// A virtual X server on a free display, which becomes this process's DISPLAY. Ends with this object.
class XServer {
public:
    XServer();
    ~XServer() { end(); }

    void end();

private:
    QProcess process_;
};

/// A window manager ("openbox", "xfwm4") on the current display; ready when the constructor returns. Ends
/// with this object.
class WindowManager {
public:
    explicit WindowManager(const QString& program);
    ~WindowManager() { end(); }

    void end();

private:
    QProcess bus_; ///< xfwm4 does not start without one.
    QProcess process_;
};

} // namespace quorvane
