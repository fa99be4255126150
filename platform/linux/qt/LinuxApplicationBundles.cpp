#include "platform/linux/qt/LinuxApplicationBundles.h"

#include <QFile>
#include <QLocale>

#include "platform/linux/applications/LauncherTable.h"
#include "platform/linux/qt/ApplicationIcon.h"

namespace quorvane {
namespace {

std::optional<DesktopEntry> entryAtPath(std::string_view path) {
    QFile file(QString::fromUtf8(path.data(), qsizetype(path.size())));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const auto text = file.readAll();
    return parseDesktopEntry({text.constData(), static_cast<std::size_t>(text.size())},
                             localeSuffixes(QLocale::system().name().toStdString()));
}

} // namespace

std::optional<std::string> LinuxApplicationBundles::absolutePathForAppBundle(std::string_view id) const {
    const auto* launcher = launcherOfBundleIdentifier(id);
    const auto entry = entries_.withId(launcher ? launcher->desktopId : id);
    return entry ? std::optional(entry->path) : std::nullopt;
}

std::string LinuxApplicationBundles::displayNameAtPath(std::string_view path) const {
    const auto entry = entryAtPath(path);
    return entry && !entry->name.empty() ? entry->name : std::string(path.substr(path.rfind('/') + 1));
}

ImageRef LinuxApplicationBundles::iconForFile(std::string_view path) const {
    const auto entry = entryAtPath(path);
    if (!entry || entry->icon.empty()) return nullptr;
    return std::make_shared<ApplicationIcon>(QString::fromStdString(entry->icon));
}

} // namespace quorvane
