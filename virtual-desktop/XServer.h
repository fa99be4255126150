#pragma once

#include <optional>

#include "virtual-desktop/SessionBus.h"

namespace quorvane {

/// A virtual X server on a free display, which becomes this process's DISPLAY. Ends with this object.
class XServer {
public:
    /// With these keyboard layouts, separated by commas; with its own one when there are none.
    explicit XServer(const QString& layouts = {});

    void end() { process_.end(); }

    /// From now on there is a monitor on the left half and one on the right. A star before a name: the
    /// primary one.
    static void splitScreen(const QString& left, const QString& right);

    /// Loads another map into the server of the current display. Lists are separated by commas, a variant for
    /// each layout. False when that fails.
    static bool setLayouts(const QString& layouts, const QString& variants = {}, const QString& options = {});

private:
    ChildProcess process_;
};

/// A window manager ("openbox", "xfwm4", "bspwm") on the current display; ready when the constructor returns.
/// Ends with this object.
class WindowManager {
public:
    explicit WindowManager(const QString& program);

    void end() { process_.end(); }

private:
    std::optional<SessionBus> bus_; ///< xfwm4 does not start without one.
    ChildProcess process_;
};

} // namespace quorvane
