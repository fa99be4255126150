#include "platform/simulated/SimulatedDesktop.h"

namespace quorvane {

SimulatedDesktop::SimulatedDesktop()
    : desktop{.facts = {.relaunchArguments = {"-n", "/Applications/Quorvane.app"}},
              .alerts = alerts,
              .application = application,
              .applicationBundles = applicationBundles,
              .clock = clock,
              .cursor = cursor,
              .distributedNotifications = distributedNotifications,
              .globalEvents = globalEvents,
              .hotKeys = hotKeys,
              .images = images,
              .interfaceFiles = interfaceFiles,
              .links = links,
              .log = log,
              .loginItems = loginItems,
              .notifications = notifications,
              .windowList = windowList,
              .openPanel = openPanel,
              .processes = processes,
              .runLoop = runLoop,
              .screens = screens,
              .statusBar = statusBar,
              .inputSources = inputSources,
              .defaults = defaults,
              .workspace = workspace} {
    images.byName["menuBarIcon"] = SimulatedImage::ofColor({18, 18}, 0, 0, 0);
}

} // namespace quorvane
