#pragma once

#include "virtual-desktop/SessionBus.h"

namespace quorvane {

/// A system bus of one's own with something on it that answers like logind. Becomes this process's
/// DBUS_SYSTEM_BUS_ADDRESS, and ends with this object.
class LogindStandIn {
public:
    LogindStandIn();
    ~LogindStandIn();

private:
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
    SessionBus bus_{&environment_, SessionBus::Services::none};
    ChildProcess process_;
};

} // namespace quorvane
