#include <string_view>

#import "platform/macos/AppKit.h"
#import "platform/macos/shell/AppDelegate.h"
#import "platform/macos/shell/MainMenu.h"
#import "platform/macos/shell/SelfCheckDelegate.h"
#import "platform/macos/shell/TerminationSignals.h"

int main(int argc, char** argv) {
    const bool asksForSelfCheck = argc == 2 && argv[1] == std::string_view("--self-check");
    @autoreleasepool {
        NSApplication* application = NSApplication.sharedApplication;
        [application setActivationPolicy:NSApplicationActivationPolicyAccessory];
        // The application keeps neither.
        static SelfCheckDelegate* const selfCheck = asksForSelfCheck ? [[SelfCheckDelegate alloc] init] : nil;
        application.delegate = asksForSelfCheck ? selfCheck : [AppDelegate appDelegate];
        application.mainMenu = quorvane::makeMainMenu([AppDelegate appDelegate]);
        static NSArray* const signals = quorvane::terminateOnSignals();
        (void)signals;
        [application run];
    }
    return 0;
}
