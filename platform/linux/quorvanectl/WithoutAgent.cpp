#include "platform/linux/quorvanectl/WithoutAgent.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "control/SettingsCommands.h"
#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "platform/linux/desktop-files/ChoosableApplications.h"
#include "platform/linux/desktop-files/LinuxApplicationBundles.h"
#include "settings/Keys.h"
#include "settings/Maker.h"
#include "settings/SettingsMirror.h"

namespace quorvane {
namespace {

std::vector<Named> installedApplications(DesktopEntries& entries) {
    std::vector<Named> installed;
    for (const auto& entry : choosableApplications(entries))
        installed.push_back({entry->id, entry->name});
    return installed;
}

/// Who could say which sources there are does not run.
bool isSourceID(std::string_view text) {
    constexpr std::string_view kinds[] = {"xkb:", "ibus:", "fcitx:"};
    return std::ranges::any_of(
        kinds, [text](auto kind) { return text.starts_with(kind) && text.size() > kind.size(); });
}

CommandResult applications(DesktopEntries& entries) {
    PropertyList::Array list;
    for (const auto& [id, name] : installedApplications(entries))
        list.emplace_back(PropertyList::Dictionary{{"identifier", id}, {"name", name}});
    return {CommandStatus::done, std::move(list)};
}

} // namespace

std::optional<CommandResult> runWithoutAgent(const std::string& command, const CommandRequest& request) {
    auto entries = DesktopEntries::ofEnvironment();
    if (command == "apps") return applications(entries);
    using Settings = SettingsCommands;
    static const std::map<std::string_view, std::function<CommandResult(Settings&, const CommandRequest&)>>
        commands = {{"rules", &Settings::rules},           {"rule", &Settings::rule},
                    {"default", &Settings::defaultSource}, {"shortcut", &Settings::shortcut},
                    {"export", &Settings::exportSettings}, {"import", &Settings::importSettings}};
    const auto found = commands.find(command);
    if (found == commands.end()) return std::nullopt;

    LinuxUserDefaults stores(LinuxUserDefaults::configFolder(), maker::bundleIdentifier);
    SettingsMirror mirror(stores);
    const LinuxApplicationBundles bundles(entries);
    const KnownNames names{.applications = [&] { return installedApplications(entries); },
                           .isProgram =
                               [&](std::string_view name) {
                                   const auto path = bundles.absolutePathForAppBundle(name);
                                   return path && path->find('/') != std::string::npos;
                               },
                           .sources = [] { return std::vector<Named>(); },
                           .isSourceID = isSourceID};
    Settings settings(stores, names,
                      {.settingsChanged =
                           [&] {
                               mirror.copyAutoInput();
                               const auto& own = stores.standardUserDefaults().ownDomain();
                               if (!own.objectForKey(key::enableForceEnglishBrowserAddress).isNothing())
                                   mirror.copyForceEnglishBrowserAddress();
                           },
                       .shortcutChanged = [](const std::string& /*source*/) {},
                       .isShortcutRefused = [](const std::string& /*source*/) { return false; }});
    auto result = found->second(settings, request);
    stores.flushPendingWrites();
    if (const auto unsaved = stores.health().unsaved())
        return commandFailure(CommandStatus::failed,
                              unsaved->place + " cannot be written: " + unsaved->detail);
    return result;
}

} // namespace quorvane
