#pragma once

#include <chrono>

#include "platform/WallClock.h"

namespace quorvane {

class MacClock : public WallClock {
public:
    double secondsSince1970() const override {
        return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    }
};

} // namespace quorvane
