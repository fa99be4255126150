#include "platform/linux/LinuxDesktop.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include "platform/linux/LaunchArguments.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

DesktopFacts factsOfX11() {
    return {
        // A layout of the X server takes effect at once. A wait would only send the first keys to the wrong
        // layout.
        .switchDelay = 0,
        .screenChangeDelay = 0,
        // Desktops have no common program for it, but all of them read this folder.
        .loginItemsCommand = "xdg-open \"${XDG_CONFIG_HOME:-$HOME/.config}/autostart\" >/dev/null 2>&1 &",
        .relaunchPath = QCoreApplication::applicationFilePath().toStdString(),
        .relaunchArguments = {launch_argument::newInstance},
    };
}

/// Where the session looks for what the user wants started at login.
std::string autostartFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation).toStdString() + "/autostart";
}

} // namespace

LinuxDesktop::LinuxDesktop(XConnection& x)
    : defaults_(LinuxUserDefaults::configFolder(), maker::bundleIdentifier)
    , distributedNotifications_(maker::distributedNotificationInterface,
                                [this] { defaults_.flushPendingWrites(); })
    , desktopEntries_(DesktopEntries::ofEnvironment())
    , identities_(x, desktopEntries_)
    , workspace_(x, identities_, &busApplications_)
    , windowList_(x, identities_)
    , screens_(x, workspace_)
    , globalEvents_(x)
    , hotKeys_(x)
    , cursor_(x)
    , inputSources_(x, drawLettersIcon)
    , selectionChanges_(inputSources_.selectionChanged.connect([this] {
        distributedNotifications_.deliverLocally(
            {std::string(selectedKeyboardInputSourceChangedNotification), {}});
    }))
    , applicationBundles_(desktopEntries_)
    , processes_([this] { defaults_.flushPendingWrites(); })
    , loginItems_(autostartFolder(), QCoreApplication::applicationFilePath().toStdString())
    , desktop_{.facts = factsOfX11(),
               .alerts = alerts_,
               .application = application_,
               .applicationBundles = applicationBundles_,
               .cursor = cursor_,
               .distributedNotifications = distributedNotifications_,
               .globalEvents = globalEvents_,
               .hotKeys = hotKeys_,
               .images = images_,
               .interfaceFiles = interfaceFiles_,
               .log = log_,
               .loginItems = loginItems_,
               .notifications = notifications_,
               .windowList = windowList_,
               .processes = processes_,
               .runLoop = runLoop_,
               .screens = screens_,
               .statusBar = statusBar_,
               .inputSources = inputSources_,
               .defaults = defaults_,
               .workspace = workspace_} {}

} // namespace quorvane
