#include "platform/linux/dbus/SessionBusAddress.h"

#include "platform/linux/dbus/GLibRefs.h"

namespace quorvane {

std::string sessionBusAddress() {
    const GCharsRef address(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    return address ? address.get() : "";
}

} // namespace quorvane
