#pragma once

#include "platform/linux/windows/WindowStack.h"

namespace quorvane {

/// The windows as the server has them at this moment.
inline std::vector<StackedWindow> stackedWindows(XConnection& x) {
    return WindowStack(x).windows();
}

} // namespace quorvane
