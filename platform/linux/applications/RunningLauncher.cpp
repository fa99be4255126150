#include "platform/linux/applications/RunningLauncher.h"

#include <charconv>
#include <filesystem>
#include <string>

#include "platform/linux/applications/ProcessFacts.h"

namespace quorvane {
namespace {

/// 0 when it is the name of no process.
int processOf(const std::string& name) {
    int pid = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
    return error == std::errc() && end == name.data() + name.size() ? pid : 0;
}

} // namespace

const KnownLauncher* runningLauncher() {
    const KnownLauncher* found = nullptr;
    int pidOfFound = 0;
    std::error_code error;
    std::filesystem::directory_iterator processes("/proc", error);
    for (; !error && processes != std::filesystem::directory_iterator(); processes.increment(error)) {
        const int pid = processOf(processes->path().filename().string());
        if (pid <= pidOfFound) continue; // Numbers grow, until they begin anew.
        const auto* launcher = launcherOfProgram(programNameOf(pid));
        if (!launcher) continue;
        found = launcher;
        pidOfFound = pid;
    }
    return found;
}

} // namespace quorvane
