#include "platform/linux/x11/X11Cursor.h"

namespace quorvane {

std::optional<Point> X11Cursor::hotSpot() const {
    (void)x_;
    return std::nullopt;
}

} // namespace quorvane
