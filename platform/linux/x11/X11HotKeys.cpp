#include "platform/linux/x11/X11HotKeys.h"

namespace quorvane {

std::optional<Subscription> X11HotKeys::registerHotKey(const KeyCombination& /*combination*/,
                                                       std::function<void()> /*pressed*/) {
    (void)x_;
    return std::nullopt;
}

} // namespace quorvane
