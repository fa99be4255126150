#pragma once

#include <string_view>

namespace quorvane {

/// Where a program's lines go that nobody has to read, but that help when something is wrong.
class SystemLog {
public:
    virtual ~SystemLog() = default;

    virtual void log(std::string_view line) = 0;
};

} // namespace quorvane
