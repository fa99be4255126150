#pragma once

#include "platform/Cursor.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

class X11Cursor : public Cursor {
public:
    explicit X11Cursor(XConnection& x) : x_(x) {}
    std::optional<Point> hotSpot() const override;

private:
    XConnection& x_;
};

} // namespace quorvane
