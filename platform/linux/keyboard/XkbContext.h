#pragma once

#include <memory>

#include <xkbcommon/xkbcommon.h>

namespace quorvane {

struct XkbContextDeleter {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};

using XkbContext = std::unique_ptr<xkb_context, XkbContextDeleter>;

/// With the folders in which the user, the machine and the system have their layouts, in this order; none
/// where memory ran out.
inline XkbContext newXkbContext() {
    return XkbContext(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
}

} // namespace quorvane
