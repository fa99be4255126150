#include "platform/linux/applications/ApplicationIdentities.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include <QCoreApplication>
#include <unistd.h>

#include "platform/linux/applications/ProcessFacts.h"
#include "platform/linux/desktop-files/ProgramNames.h"
#include "platform/linux/x11/XcbReply.h"
#include "settings/Maker.h"

namespace quorvane {

namespace {

constexpr std::uint32_t windowEvents =
    XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
constexpr std::array identifyingProperties = {"WM_CLASS", "_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE"};

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

ApplicationIdentities::ApplicationIdentities(XConnection& x, DesktopEntries& entries)
    : x_(x)
    , entries_(entries)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"WM_CLASS", "_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE", "_NET_WM_PID",
                    "COMPOUND_TEXT", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK",
                    "_NET_WM_WINDOW_TYPE_DESKTOP"});
}

void ApplicationIdentities::learn(std::span<const xcb_window_t> windows) {
    std::vector<xcb_window_t> unknown;
    std::ranges::copy_if(windows, std::back_inserter(unknown), [this](auto window) {
        return window != XCB_WINDOW_NONE && !owners_.contains(window);
    });
    // First ask for changes, then for the present state: nothing can happen unseen in between.
    std::vector<xcb_void_cookie_t> selections;
    selections.reserve(unknown.size());
    for (const auto window : unknown) {
        selections.push_back(
            xcb_change_window_attributes_checked(x_.xcb(), window, XCB_CW_EVENT_MASK, &windowEvents));
    }
    const auto facts = factsOf(x_, unknown);
    for (std::size_t i = 0; i < unknown.size(); ++i) {
        // A window that vanished before the first request, and whose number was another's before the second,
        // would be remembered for ever.
        const XcbReply<xcb_generic_error_t> refusal(xcb_request_check(x_.xcb(), selections[i]));
        if (!facts[i] || refusal) continue;
        const auto& owner = owners_[unknown[i]] = identify(*facts[i]);
        if (owner.otherId) renamed.emit(std::string(*owner.otherId), std::string(*owner.id));
    }
}

const WindowOwner* ApplicationIdentities::ownerOf(xcb_window_t window) {
    learn({&window, 1});
    const auto owner = owners_.find(window);
    return owner == owners_.end() ? nullptr : &owner->second;
}

bool ApplicationIdentities::isIdentifying(xcb_atom_t property) const {
    return std::ranges::any_of(identifyingProperties,
                               [&](const char* name) { return x_.atom(name) == property; });
}

void ApplicationIdentities::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_DESTROY_NOTIFY:
        // The server gives the number to a new window soon.
        owners_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (owners_.contains(change.window) && isIdentifying(change.atom)) owners_.erase(change.window);
        break;
    }
    default:
        break;
    }
}

WindowOwner ApplicationIdentities::identify(const WindowFacts& facts) {
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

ApplicationIdentities::Installed ApplicationIdentities::installed(const WindowFacts& facts,
                                                                  const std::string& flatpakId,
                                                                  const std::string& program) {
    const std::pair<std::string, const char*> ids[] = {
        {facts.gtkApplicationId, "_GTK_APPLICATION_ID"},
        {withoutPathAndSuffix(facts.kdeDesktopFile), "_KDE_NET_WM_DESKTOP_FILE"},
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

std::optional<std::string> ApplicationIdentities::idOfSameProcess(int pid) const {
    const auto owner =
        std::ranges::find_if(owners_, [&](const auto& each) { return pid != 0 && each.second.pid == pid; });
    return owner == owners_.end() ? std::nullopt : owner->second.id;
}

} // namespace quorvane
