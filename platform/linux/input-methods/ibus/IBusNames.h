#pragma once

#include "platform/linux/dbus/DaemonConnection.h"

namespace quorvane {

constexpr const char* ibusName = "org.freedesktop.IBus";
inline const DaemonConnection::Interface ibusDaemon{"/org/freedesktop/IBus", ibusName};

} // namespace quorvane
