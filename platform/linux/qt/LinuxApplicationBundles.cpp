#include "platform/linux/qt/LinuxApplicationBundles.h"

#include <QFile>
#include <QLocale>
#include <QStandardPaths>

#include "platform/linux/qt/ApplicationIcon.h"

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

} // namespace

std::optional<std::string> LinuxApplicationBundles::absolutePathForAppBundle(std::string_view id) const {
    const auto entry = entries_.withId(id);
    return entry ? std::optional(entry->path) : programOf(id);
}

std::optional<std::string> LinuxApplicationBundles::programOf(std::string_view id) const {
    const auto name = QString::fromUtf8(id.data(), qsizetype(id.size()));
    if (name.contains('/')) return std::nullopt;
    // Windows of xterm say "XTerm".
    for (const auto& program : {name, name.toLower()}) {
        const auto path = QStandardPaths::findExecutable(program);
        if (!path.isEmpty()) return path.toStdString();
    }
    for (const auto& running : workspace_.runningApplications()) {
        if (running.bundleIdentifier != id || running.processIdentifier == 0) continue;
        const auto path = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(running.processIdentifier));
        if (!path.isEmpty()) return path.toStdString();
    }
    return std::nullopt;
}

std::string LinuxApplicationBundles::displayNameAtPath(std::string_view path) const {
    const auto entry = entryAtPath(path);
    return entry && !entry->name.empty() ? entry->name : baseName(path);
}

ImageRef LinuxApplicationBundles::iconForFile(std::string_view path) const {
    const auto entry = entryAtPath(path);
    const auto icon = entry ? entry->icon : baseName(path); // A theme may have one of the program's name.
    return icon.empty() ? nullptr : std::make_shared<ApplicationIcon>(QString::fromStdString(icon));
}

} // namespace quorvane
