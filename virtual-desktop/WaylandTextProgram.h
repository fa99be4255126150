#pragma once

#include "virtual-desktop/RunningProgram.h"
#include "virtual-desktop/TextCommand.h"
#include "virtual-desktop/WaylandServer.h"

namespace quorvane {

/// A real program that somebody types into, in the way of its toolkit: native on Wayland, but for `xim`,
/// which is one of X. Ends with this object.
class WaylandTextProgram {
public:
    using Toolkit = TextCommand::Toolkit;

    /// Its window, of that title, is in front and takes keys when this returns.
    WaylandTextProgram(WaylandServer& server, Toolkit toolkit, const QString& name);

    bool activate(); ///< Waits until its window is in front and gets the keys.

    /// The text it has got so far, without spaces. Programs of GTK tell at the end of the line, and leave.
    QString typed() { return TextCommand::typed(toolkit_, program_.output()); }

    qint64 processId() const { return program_.processId(); }

private:
    WaylandTextProgram(WaylandServer& server, Toolkit toolkit, const QString& name,
                       const TextCommand& command);

    WaylandServer& server_;
    Toolkit toolkit_;
    QString name_;
    RunningProgram program_;
};

} // namespace quorvane
