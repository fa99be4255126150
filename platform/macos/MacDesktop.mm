#import "platform/macos/MacDesktop.h"

#include "settings/Maker.h"

namespace quorvane {

MacDesktop::MacDesktop()
    : defaults_(maker::bundleIdentifier)
    , inputSources_(&MacImages::imageOfIcon)
    , interfaceFiles_({notifications_, hotKeys_})
    , alerts_([this] { return interfaceFiles_.preferencesWindow(); })
    , processes_([this] { defaults_.flushPendingWrites(); })
    , desktop_{.facts = {.relaunchArguments = MacProcesses::relaunchArguments()},
               .alerts = alerts_,
               .application = application_,
               .applicationBundles = applicationBundles_,
               .clock = clock_,
               .cursor = cursor_,
               .distributedNotifications = distributedNotifications_,
               .globalEvents = globalEvents_,
               .hotKeys = hotKeys_,
               .images = images_,
               .interfaceFiles = interfaceFiles_,
               .links = links_,
               .log = log_,
               .loginItems = loginItems_,
               .notifications = notifications_,
               .windowList = windowList_,
               .openPanel = openPanel_,
               .processes = processes_,
               .runLoop = runLoop_,
               .screens = screens_,
               .statusBar = statusBar_,
               .inputSources = inputSources_,
               .defaults = defaults_,
               .workspace = workspace_} {}

} // namespace quorvane
