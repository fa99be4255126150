#include "platform/linux/desktop-files/ChoosableApplications.h"

#include <utility>

#include <QStandardPaths>

#include "platform/linux/desktop-files/LauncherTable.h"
#include "platform/linux/desktop-files/MenuEntries.h"

namespace quorvane {
namespace {

/// A launcher that is found on the machine without a desktop file; null when it is not. Themes may have an
/// icon of the program's name.
DesktopEntryRef launcherProgram(const std::string& id) {
    const auto program = QStandardPaths::findExecutable(QString::fromStdString(id));
    if (program.isEmpty()) return nullptr;
    DesktopEntry entry;
    entry.id = entry.icon = entry.program = id;
    entry.name = launcherOfDesktopId(id)->name;
    entry.path = program.toStdString();
    return std::make_shared<const DesktopEntry>(std::move(entry));
}

} // namespace

std::vector<DesktopEntryRef> choosableApplications(DesktopEntries& entries) {
    const auto currentDesktops = qgetenv("XDG_CURRENT_DESKTOP").toStdString();
    const auto programFolders = qgetenv("PATH").toStdString();
    std::vector<DesktopEntryRef> choosable;
    for (auto& entry : entries.all()) {
        const bool isShown = isShownInMenus(*entry, currentDesktops, programFolders);
        if (isShown && !launcherOfDesktopId(entry->id)) choosable.push_back(std::move(entry));
    }
    for (const auto& id : launcherIdentifiers()) {
        auto installed = entries.withId(id);
        if (!installed) installed = launcherProgram(id);
        if (installed) choosable.push_back(std::move(installed));
    }
    return choosable;
}

} // namespace quorvane
