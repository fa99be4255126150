#include "platform/linux/qt/LinuxApplicationBundles.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>

#include "platform/linux/applications/LauncherTable.h"
#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr int iconSize = 32; // points

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
    const auto name = QString::fromStdString(entry->icon);
    const auto icon = name.startsWith('/') ? QIcon(name) : QIcon::fromTheme(name);
    return QtImage::make(icon.pixmap(QSize(iconSize, iconSize), qGuiApp->devicePixelRatio()).toImage());
}

} // namespace quorvane
