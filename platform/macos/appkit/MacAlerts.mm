#import "platform/macos/appkit/MacAlerts.h"

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

NSAlert* makeAlert(const Alert& alert) {
    NSAlert* made = [[NSAlert alloc] init];
    made.messageText = shownText(alert.messageText);
    made.informativeText = shownText(alert.informativeText);
    for (const auto& title : alert.buttons) {
        NSButton* button = [made addButtonWithTitle:shownText(title)];
        // The system lets Escape press a button only if that is called "Cancel".
        const bool isLastOfSeveral = &title != &alert.buttons.front() && &title == &alert.buttons.back();
        if (isLastOfSeveral) button.keyEquivalent = @"\033";
    }
    if (!alert.suppressionButtonTitle.empty()) {
        made.showsSuppressionButton = YES;
        made.suppressionButton.title = shownText(alert.suppressionButtonTitle);
    }
    return made;
}

AlertAnswer answerOf(NSAlert* alert, NSModalResponse response) {
    // One without buttons of ours gets one from the system.
    const auto buttons = static_cast<std::int64_t>(alert.buttons.count);
    return {.response = alertResponse(response - NSAlertFirstButtonReturn, buttons),
            .suppressionButtonIsOn = alert.suppressionButton.state == NSControlStateValueOn};
}

AlertAnswer run(NSAlert* alert) {
    // An agent is not active: the alert would be behind other windows, and keys would go past it.
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
    const auto response = [alert runModal];
    return answerOf(alert, response);
}

} // namespace

AlertAnswer MacAlerts::runModal(const Alert& alert) {
    return run(makeAlert(alert));
}

void MacAlerts::beginSheet(const Alert& alert, std::function<void(const AlertAnswer&)> completion) {
    NSAlert* made = makeAlert(alert);
    if (NSWindow* window = windowForSheet()) {
        [made beginSheetModalForWindow:window
                     completionHandler:^(NSModalResponse response) {
                       callProgram(completion, answerOf(made, response));
                     }];
        return;
    }
    dispatch_async(dispatch_get_main_queue(), ^{
      callProgram(completion, run(made));
    });
}

NSWindow* MacAlerts::windowForSheet() const {
    if (NSWindow* window = NSApplication.sharedApplication.mainWindow) return window;
    NSWindow* preferences = preferencesWindow_();
    return preferences.visible ? preferences : nil;
}

} // namespace quorvane
