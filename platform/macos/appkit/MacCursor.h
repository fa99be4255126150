#pragma once

#include "platform/Cursor.h"

namespace quorvane {

class MacCursor : public Cursor {
public:
    std::optional<Point> hotSpot() const override;
};

} // namespace quorvane
