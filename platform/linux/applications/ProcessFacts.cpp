#include "platform/linux/applications/ProcessFacts.h"

#include <filesystem>
#include <fstream>

#include "platform/linux/desktop-files/ProgramNames.h"

namespace quorvane {

namespace {

std::string processFile(int pid, const char* name) {
    return "/proc/" + std::to_string(pid) + "/" + name;
}

std::string firstLine(const std::string& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

/// The first argument that is no option, without its folder.
std::string scriptNameOf(int pid) {
    std::ifstream commandLine(processFile(pid, "cmdline"));
    std::string argument;
    std::getline(commandLine, argument, '\0'); // the interpreter
    while (std::getline(commandLine, argument, '\0')) {
        if (!argument.starts_with('-')) return argument.substr(argument.rfind('/') + 1);
    }
    return {};
}

} // namespace

std::string executableNameOf(int pid) {
    std::error_code error;
    auto name = std::filesystem::read_symlink(processFile(pid, "exe"), error).filename().string();
    // The kernel's mark on a program that was replaced by an update while it runs.
    constexpr std::string_view deleted = " (deleted)";
    if (name.ends_with(deleted)) name.resize(name.size() - deleted.size());
    return name;
}

std::string programNameOf(int pid) {
    auto name = executableNameOf(pid);
    if (!isInterpreter(name)) return name;
    const auto script = scriptNameOf(pid);
    return script.empty() ? name : script;
}

std::string flatpakIdOf(int pid) {
    std::ifstream info(processFile(pid, "root/.flatpak-info"));
    bool inGroup = false;
    for (std::string line; std::getline(info, line);) {
        if (line.starts_with('[')) inGroup = line == "[Application]";
        if (inGroup && line.starts_with("name=")) return line.substr(5);
    }
    return {};
}

std::string snapIdOf(int pid) {
    // The security label is "snap.PACKAGE.PROGRAM (enforce)", the desktop file PACKAGE_PROGRAM.desktop.
    const auto label = firstLine(processFile(pid, "attr/current"));
    constexpr std::string_view prefix = "snap.";
    const auto dot = label.find('.', prefix.size());
    if (!label.starts_with(prefix) || dot == std::string::npos) return {};
    const auto end = label.find_first_of(" .", dot + 1);
    return label.substr(prefix.size(), dot - prefix.size()) + "_" + label.substr(dot + 1, end - dot - 1);
}

bool processLives(int pid) {
    if (pid <= 0) return false;
    // "PID (NAME) STATE ..."; the name may hold anything.
    const auto stat = firstLine(processFile(pid, "stat"));
    const auto nameEnd = stat.rfind(')');
    if (nameEnd == std::string::npos || nameEnd + 2 >= stat.size()) return false;
    const char state = stat[nameEnd + 2];
    return state != 'Z' && state != 'X';
}

} // namespace quorvane
