#pragma once

#include "virtual-desktop/ChildProcess.h"

namespace quorvane {

/// A session bus of one's own. Ends with this object.
class SessionBus {
public:
    enum class Services {
        installed, ///< It starts what is installed for it when somebody asks.
        none       ///< Nothing: on a desktop without a screen portals fail, and programs wait for them.
    };

    /// Becomes the DBUS_SESSION_BUS_ADDRESS of that environment, in which the bus itself and what it starts
    /// run, too; without one, of this process.
    explicit SessionBus(QProcessEnvironment* environment = nullptr, Services services = Services::installed);

    void end() { process_.end(); }

    void stop(); ///< It hangs until `resume`.
    void resume();

private:
    ChildProcess process_;
};

} // namespace quorvane
