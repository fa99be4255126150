#include "platform/linux/Log.h"

#include <cstdio>
#include <set>
#include <string>

namespace quorvane {

void logLine(std::string_view line) {
    static std::set<std::string, std::less<>> written;
    if (written.emplace(line).second) logEvent(line);
}

void logEvent(std::string_view line) {
    std::fprintf(stderr, "quorvane: %.*s\n", static_cast<int>(line.size()), line.data());
}

} // namespace quorvane
