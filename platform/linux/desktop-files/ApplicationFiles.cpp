#include "platform/linux/desktop-files/ApplicationFiles.h"

#include <unistd.h>

#include "platform/linux/desktop-files/LauncherTable.h"
#include "platform/linux/desktop-files/ProgramNames.h"

namespace quorvane {

namespace fs = std::filesystem;

namespace {

bool isRegularFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

/// Where the links of a path lead; the path itself when they lead nowhere.
fs::path target(const fs::path& path) {
    std::error_code error;
    auto real = fs::canonical(path, error);
    return error ? path : real;
}

std::string idOfProgram(DesktopEntries& entries, const std::string& program) {
    const auto entry = entries.ofRunningProgram(program);
    return entry ? entry->id : program;
}

std::optional<std::string> idOfDesktopFile(DesktopEntries& entries, const fs::path& file) {
    for (const auto& path : {file, target(file)}) {
        auto id = entries.idOfFile(path);
        if (id && entries.withId(*id)) return id;
    }
    const auto entry = entries.entryInFile(file);
    if (!entry) return std::nullopt;
    // A copy, for instance on the user's desktop, keeps the name.
    if (auto name = file.stem().string(); entries.withId(name)) return name;
    if (!entry->startupWmClass.empty()) {
        const auto installed = entries.withStartupWmClass(entry->startupWmClass);
        return installed ? installed->id : nameOfApplication(entry->startupWmClass, entry->program);
    }
    if (entry->program.empty()) return std::nullopt;
    return isInterpreter(entry->program) ? file.stem().string() : idOfProgram(entries, entry->program);
}

std::optional<std::string> idOfExecutable(DesktopEntries& entries, const fs::path& file) {
    if (access(file.c_str(), X_OK) != 0) return std::nullopt;
    // Desktop files start programs by the name of a link, too. What runs is where the link leads.
    const auto name = file.filename().string();
    if (launcherOfDesktopId(name)) return name;
    if (const auto entry = entries.ofRunningProgram(name)) return entry->id;
    return idOfProgram(entries, target(file).filename().string());
}

} // namespace

std::optional<std::string> bundleIdentifierOfFile(DesktopEntries& entries, const fs::path& file) {
    if (!isRegularFile(file)) return std::nullopt;
    return file.extension() == ".desktop" ? idOfDesktopFile(entries, file) : idOfExecutable(entries, file);
}

} // namespace quorvane
