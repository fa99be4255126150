#include "platform/linux/x11/XFixes.h"

#include <xcb/xfixes.h>

namespace quorvane {

std::optional<std::uint8_t> useXFixes(XConnection& x) {
    const auto* extension = xcb_get_extension_data(x.xcb(), &xcb_xfixes_id);
    if (!extension || !extension->present) return std::nullopt;
    // A server takes the requests of the version that it has been asked for.
    const auto version =
        xcb_xfixes_query_version(x.xcb(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
    xcb_discard_reply(x.xcb(), version.sequence);
    return extension->first_event;
}

} // namespace quorvane
