#pragma once

namespace quorvane {

/// The time of day, which the user may set.
class WallClock {
public:
    virtual ~WallClock() = default;

    virtual double secondsSince1970() const = 0; // UTC
};

} // namespace quorvane
