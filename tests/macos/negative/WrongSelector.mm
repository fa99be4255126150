// no visible @interface for 'NSWorkspace' declares the selector 'openUrl:'
#import "platform/macos/AppKit.h"

void openLink(NSURL* link) {
    [NSWorkspace.sharedWorkspace openUrl:link];
}
