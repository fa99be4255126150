#include "platform/linux/gnome/GnomeSession.h"

#include <utility>

#include "platform/linux/gnome/ShellAddress.h"

namespace quorvane {

GnomeSession::GnomeSession(const QDBusConnection& bus, SessionApplications& applications,
                           InputMethodIcons icons)
    : icons_(std::move(icons))
    , messages_(bus, shell_address::service)
    , shell_(bus, messages_)
    , extension_(bus, messages_, shell_)
    , windows_(applications)
    , windowNews_(windowNews())
    , sources_(shell_, messages_, icons_)
    , rules_(shell_, messages_, applications.owners)
    , hotKeyBindings_(shell_, messages_)
    , hotKeys_(hotKeyBindings_)
    , indicator_(shell_)
    , windowHost_(shell_)
    , windowList_(applications, windows_)
    , screens_(windows_)
    , printedKeyboard_(sources_) {}

std::vector<Subscription> GnomeSession::windowNews() {
    std::vector<Subscription> news;
    news.push_back(shell_.starting.connect([this] { windows_.tellingAnew(); }));
    news.push_back(messages_.windowChanged.connect(
        [this](WindowId window, const CompositorWindow& now) { windows_.changed(window, now); }));
    news.push_back(messages_.windowClosed.connect([this](WindowId window) { windows_.closed(window); }));
    news.push_back(
        messages_.windowActivated.connect([this](WindowId window) { windows_.activated(window); }));
    news.push_back(messages_.launcherChanged.connect([this](const std::string& desktopId, bool isOpen) {
        windows_.launcherMoved(isOpen ? launcherOfDesktopId(desktopId) : nullptr);
    }));
    news.push_back(shell_.started.connect([this] { windows_.toldAll(); }));
    return news;
}

SessionParts GnomeSession::parts() {
    return {.name = "GNOME Shell",
            .layouts = sources_,
            .hasIBusEngines = true,
            .hotKeys = hotKeys_,
            .windowList = windowList_,
            .screens = screens_,
            .globalEvents = globalEvents_,
            .cursor = cursor_,
            .indicator = indicator_,
            .windowHost = windowHost_,
            .printedKeyboard = printedKeyboard_,
            .switchingAhead = &rules_,
            .shellExtension = &extension_};
}

} // namespace quorvane
