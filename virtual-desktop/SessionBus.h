#pragma once

#include "virtual-desktop/ChildProcess.h"

namespace quorvane {

/// A session bus of one's own. Ends with this object.
class SessionBus {
public:
    /// Becomes the DBUS_SESSION_BUS_ADDRESS of that environment, in which the bus itself and what it starts
    /// run, too; without one, of this process.
    explicit SessionBus(QProcessEnvironment* environment = nullptr);

    void end() { process_.end(); }

    void stop(); ///< It hangs until `resume`.
    void resume();

private:
    ChildProcess process_;
};

} // namespace quorvane
