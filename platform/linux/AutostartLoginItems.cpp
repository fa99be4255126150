#include "platform/linux/AutostartLoginItems.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <utility>

#include "platform/linux/LaunchArguments.h"
#include "platform/linux/files/ReplaceFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view group = "[Desktop Entry]";

/// The end of the command that this class writes, and nobody else.
const std::string startedAtLogin = std::string(" ") + launch_argument::atLogin + '\n';

/// The keys by which a desktop, or the user with an editor, switches the entry off.
constexpr std::array<std::string_view, 2> usersOwnKeys = {"Hidden", "X-GNOME-Autostart-enabled"};

std::string textOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return std::move(text).str();
}

/// The lines of the entry that are the user's own, as they stand there.
std::string usersOwnLines(const std::string& entry) {
    std::string kept;
    std::istringstream lines(entry);
    bool isInGroup = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) isInGroup = line.starts_with(group);
        const auto key = line.substr(0, line.find_first_of(" ="));
        const bool isUsersOwn = std::ranges::find(usersOwnKeys, key) != usersOwnKeys.end();
        if (isInGroup && isUsersOwn && line.find('=') != std::string::npos) kept += line + '\n';
    }
    return kept;
}

bool isSwitchedOff(const std::string& entry) {
    auto lines = usersOwnLines(entry);
    std::erase(lines, ' ');
    return lines.find("Hidden=true\n") != std::string::npos ||
           lines.find("X-GNOME-Autostart-enabled=false\n") != std::string::npos;
}

std::string withBackslashBefore(std::string_view characters, std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (characters.find(character) != std::string_view::npos) escaped += '\\';
        escaped += character;
    }
    return escaped;
}

/// The path as one argument of an Exec line: quoted like in a shell, then a percent sign doubled because it
/// would begin a field code, then escaped once more as every text of a desktop entry is.
std::string execArgument(std::string_view path) {
    std::string argument;
    for (const char character : '"' + withBackslashBefore("\"`$\\", path) + '"') {
        if (character == '%') argument += '%';
        argument += character;
    }
    return withBackslashBefore("\\", argument);
}

/// True if there is no entry of this class's own afterwards.
bool removeOwn(const fs::path& file) {
    if (textOf(file).find(startedAtLogin) == std::string::npos) return true;
    std::error_code error;
    fs::remove(file, error);
    return !error;
}

} // namespace

AutostartLoginItems::AutostartLoginItems(fs::path folder, std::string desktopId, std::string program)
    : folder_(std::move(folder))
    , desktopId_(std::move(desktopId))
    , program_(std::move(program)) {}

bool AutostartLoginItems::setEnabled(std::string_view identifier, bool enabled) {
    const auto file = folder_ / (desktopId_ + ".desktop");
    const auto former = folder_ / (std::string(identifier) + ".desktop");
    if (enabled ? !write(file, former) : !removeOwn(file)) return false;
    return removeOwn(former);
}

/// Also by an entry of the user's own.
std::optional<bool> AutostartLoginItems::isEnabled(std::string_view identifier) const {
    auto entry = textOf(folder_ / (desktopId_ + ".desktop"));
    if (entry.empty()) entry = textOf(folder_ / (std::string(identifier) + ".desktop"));
    return !entry.empty() && !isSwitchedOff(entry);
}

bool AutostartLoginItems::write(const fs::path& file, const fs::path& former) const {
    const auto present = textOf(file);
    std::string entry(group);
    entry += "\nType=Application\nName=Quorvane\n"
             "Comment=Gives every program the keyboard input source it needs\n"
             "Icon=" +
             desktopId_ + "\nTryExec=" + withBackslashBefore("\\", program_) +
             "\nExec=" + execArgument(program_) + startedAtLogin + "Terminal=false\n" +
             usersOwnLines(present.empty() ? textOf(former) : present);
    if (entry == present) return true; // a launch like the one before writes nothing
    if (makePrivateFolder(folder_)) return false;
    const std::string_view pieces[] = {entry};
    return !replaceDurably(file, pieces);
}

} // namespace quorvane
