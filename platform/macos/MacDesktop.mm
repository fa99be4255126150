#import "platform/macos/MacDesktop.h"

#import "platform/macos/foundation/PropertyListBridge.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

/// It lies in the bundle, wherever that is.
std::string helpPage() {
    NSURL* page =
        [NSBundle.mainBundle.bundleURL URLByAppendingPathComponent:@"Contents/Resources/help/index.html"];
    return fromNSString(page.absoluteString);
}

} // namespace

MacDesktop::MacDesktop()
    : defaults_(maker::bundleIdentifier)
    , inputSources_(&MacImages::imageOfIcon)
    , interfaceFiles_({notifications_, hotKeys_})
    , alerts_([this] { return interfaceFiles_.preferencesWindow(); })
    , processes_([this] { defaults_.flushPendingWrites(); })
    , desktop_{.facts = {.helpPage = helpPage(), .relaunchArguments = MacProcesses::relaunchArguments()},
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
