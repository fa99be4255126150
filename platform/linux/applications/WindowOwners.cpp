#include "platform/linux/applications/WindowOwners.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <QCoreApplication>
#include <unistd.h>

#include "platform/linux/applications/ProcessFacts.h"
#include "platform/linux/desktop-files/ProgramNames.h"
#include "settings/Maker.h"

namespace quorvane {

namespace {

std::string withoutPathAndSuffix(std::string file) {
    file.erase(0, file.rfind('/') + 1);
    constexpr std::string_view suffix = ".desktop";
    if (file.ends_with(suffix)) file.resize(file.size() - suffix.size());
    return file;
}

std::string quoted(const char* what, const std::string& value) {
    return std::string(what) + " \"" + value + '"';
}

std::string firstNotEmpty(std::initializer_list<std::string> texts) {
    const auto* const found = std::ranges::find_if(texts, [](const auto& text) { return !text.empty(); });
    return found == texts.end() ? std::string() : *found;
}

} // namespace

const WindowOwner& WindowOwners::identify(WindowId window, const WindowFacts& facts) {
    const auto& owner = owners_.insert_or_assign(window, ownerBy(facts)).first->second;
    if (owner.otherId) renamed.emit(std::string(*owner.otherId), std::string(*owner.id));
    return owner;
}

const WindowOwner* WindowOwners::ownerOf(WindowId window) const {
    const auto owner = owners_.find(window);
    return owner == owners_.end() ? nullptr : &owner->second;
}

WindowOwner WindowOwners::ownerBy(const WindowFacts& facts) const {
    WindowOwner owner;
    owner.pid = facts.pid;
    owner.isThisProcess = facts.pid == getpid();
    owner.isPartOfDesktop = facts.isPartOfDesktop;
    if (owner.isThisProcess) {
        owner.id = maker::bundleIdentifier;
        owner.name = QCoreApplication::applicationName().toStdString();
        return owner;
    }
    owner.launcher = launcherOfClass(facts.wmClass);
    if (owner.launcher) {
        owner.id = owner.launcher->desktopId;
        owner.name = owner.launcher->name;
        owner.recognisedBy = quoted("its class, a launcher's,", facts.wmClass);
        return owner;
    }
    const auto flatpakId = flatpakIdOf(facts.pid);
    const auto program = programNameOf(facts.pid);
    if (const auto [entry, by] = installed(facts, flatpakId, program); entry) {
        owner.id = entry->id;
        owner.name = entry->name;
        owner.recognisedBy = by;
        return owner;
    }
    const auto name = nameOfApplication(facts.wmClass, program);
    const std::pair<std::string, const char*> ids[] = {
        {facts.gtkApplicationId, "_GTK_APPLICATION_ID"},
        {withoutPathAndSuffix(facts.kdeDesktopFile), "_KDE_NET_WM_DESKTOP_FILE"},
        {withoutPathAndSuffix(facts.desktopFile), "the compositor's desktop file"},
        {flatpakId, "its Flatpak"},
        {name, name == facts.wmClass ? "its class" : "its program, which its class is named after,"},
        {facts.wmInstance, "its instance"},
        {idOfSameProcess(facts.pid).value_or(""), "another window of its process,"},
        {program, "its program"}};
    const auto* const found = std::ranges::find_if(ids, [](const auto& id) { return !id.first.empty(); });
    if (found == std::end(ids)) return owner;
    owner.id = found->first;
    owner.recognisedBy = quoted(found->second, found->first);
    if (owner.id == name && name != facts.wmClass) owner.otherId = facts.wmClass;
    owner.name = firstNotEmpty({facts.wmClass, program, found->first});
    return owner;
}

WindowOwners::Installed WindowOwners::installed(const WindowFacts& facts, const std::string& flatpakId,
                                                const std::string& program) const {
    const std::pair<std::string, const char*> ids[] = {
        {facts.gtkApplicationId, "_GTK_APPLICATION_ID"},
        {withoutPathAndSuffix(facts.kdeDesktopFile), "_KDE_NET_WM_DESKTOP_FILE"},
        {withoutPathAndSuffix(facts.desktopFile), "the compositor's desktop file"},
        {flatpakId, "its Flatpak"},
        {snapIdOf(facts.pid), "its Snap"}};
    for (const auto& [id, what] : ids) {
        if (id.empty()) continue;
        if (auto entry = entries_.withId(id)) return {std::move(entry), quoted(what, id)};
    }
    const std::pair<std::string, const char*> wmNames[] = {{facts.wmClass, "its class"},
                                                           {facts.wmInstance, "its instance"}};
    for (const auto& [wmName, what] : wmNames) {
        if (auto entry = entries_.withStartupWmClass(wmName))
            return {std::move(entry), quoted(what, wmName) + ", the StartupWMClass of its desktop file"};
    }
    for (const auto& [wmName, what] : wmNames) {
        if (auto entry = entries_.named(wmName)) return {std::move(entry), quoted(what, wmName)};
    }
    return {entries_.ofRunningProgram(program), quoted("its program", program)};
}

std::optional<std::string> WindowOwners::idOfSameProcess(int pid) const {
    const auto owner =
        std::ranges::find_if(owners_, [&](const auto& each) { return pid != 0 && each.second.pid == pid; });
    return owner == owners_.end() ? std::nullopt : owner->second.id;
}

} // namespace quorvane
