#include "platform/linux/desktop-files/LinuxApplicationBundles.h"

#include <algorithm>

#include <QFile>
#include <QLocale>
#include <QStandardPaths>

#include "platform/linux/desktop-files/LauncherTable.h"

namespace quorvane {
namespace {

/// None for a program.
std::optional<DesktopEntry> entryAtPath(std::string_view path) {
    if (!path.ends_with(".desktop")) return std::nullopt;
    QFile file(QString::fromUtf8(path.data(), qsizetype(path.size())));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const auto text = file.readAll();
    return parseDesktopEntry({text.constData(), static_cast<std::size_t>(text.size())},
                             localeSuffixes(QLocale::system().name().toStdString()));
}

std::string baseName(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1));
}

/// In reverse-DNS style, with two dots at least: classes and programs may have one ("Kupfer.py").
bool isStyledLikeDesktopFiles(std::string_view id) {
    const bool isPath = id.find('/') != std::string_view::npos;
    return !isPath && std::ranges::count(id, '.') >= 2;
}

} // namespace

std::optional<std::string> LinuxApplicationBundles::absolutePathForAppBundle(std::string_view id) const {
    if (const auto entry = entries_.withId(id)) return entry->path;
    // A launcher is known by that name whether it has the file or not.
    if (id.empty() || (isStyledLikeDesktopFiles(id) && !launcherOfDesktopId(id))) return std::nullopt;
    const auto name = QString::fromUtf8(id.data(), qsizetype(id.size()));
    const auto program = name.contains('/') ? name : QStandardPaths::findExecutable(name);
    return (program.isEmpty() ? name : program).toStdString();
}

std::string LinuxApplicationBundles::displayNameAtPath(std::string_view path) const {
    const auto entry = entryAtPath(path);
    if (entry && !entry->name.empty()) return entry->name;
    const auto program = baseName(path);
    const auto* launcher = launcherOfDesktopId(program);
    return launcher ? std::string(launcher->name) : program;
}

ImageRef LinuxApplicationBundles::iconForFile(std::string_view path) const {
    const auto entry = entryAtPath(path);
    const auto icon = entry ? entry->icon : baseName(path); // A theme may have one of the program's name.
    return icon.empty() || !makeIcon_ ? nullptr : makeIcon_(icon);
}

} // namespace quorvane
