#import "platform/macos/AppKit.h"
#import "platform/macos/shell/AppDelegate.h"
#import "platform/macos/shell/MainMenu.h"
#import "platform/macos/shell/TerminationSignals.h"

int main() {
    @autoreleasepool {
        NSApplication* application = NSApplication.sharedApplication;
        [application setActivationPolicy:NSApplicationActivationPolicyAccessory];
        application.delegate = [AppDelegate appDelegate]; // The application does not keep it.
        application.mainMenu = quorvane::makeMainMenu([AppDelegate appDelegate]);
        static NSArray* const signals = quorvane::terminateOnSignals();
        (void)signals;
        [application run];
    }
    return 0;
}
