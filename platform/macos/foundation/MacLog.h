#pragma once

#include "platform/SystemLog.h"

namespace quorvane {

/// The system's log, which the Console application shows.
class MacLog : public SystemLog {
public:
    void log(std::string_view line) override;
};

} // namespace quorvane
