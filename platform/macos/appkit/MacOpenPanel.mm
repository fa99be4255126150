#import "platform/macos/appkit/MacOpenPanel.h"

#include <utility>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

std::optional<std::string> bundleIdentifierAt(NSURL* chosen) {
    NSURL* info = [chosen URLByAppendingPathComponent:@"Contents/Info.plist"];
    if (!info) return std::nullopt;
    const auto entries = fromNSObject([NSDictionary dictionaryWithContentsOfURL:info error:nil]);
    const auto* identifier = entries["CFBundleIdentifier"].string();
    return identifier && !identifier->empty() ? std::optional(*identifier) : std::nullopt;
}

} // namespace

void MacOpenPanel::beginChoosingApplication(Completion completion) {
    choosing_->completion = std::move(completion);
    if (choosing_->panel) {
        [choosing_->panel makeKeyAndOrderFront:nil];
        return;
    }
    NSOpenPanel* panel = [NSOpenPanel openPanel];
    panel.canCreateDirectories = NO;
    panel.canChooseDirectories = YES;
    panel.canChooseFiles = YES; // To the panel, an application is a file.
    panel.allowsMultipleSelection = NO;
    panel.directoryURL = [NSURL fileURLWithPath:@"/Applications"];
    choosing_->panel = panel;
    const auto choosing = choosing_;
    [panel beginWithCompletionHandler:^(NSModalResponse response) {
      NSURL* chosen = choosing->panel.URLs.firstObject;
      choosing->panel = nil;
      const auto chosenBy = std::exchange(choosing->completion, nullptr);
      if (response == NSModalResponseOK && chosen) callProgram(chosenBy, bundleIdentifierAt(chosen));
    }];
}

} // namespace quorvane
