#pragma once

#include "platform/SystemLog.h"
#include "platform/linux/Log.h"

namespace quorvane {

/// The log is standard error, which a session keeps for its programs.
class LinuxLog : public SystemLog {
public:
    void log(std::string_view line) override { logEvent(line); }
};

} // namespace quorvane
