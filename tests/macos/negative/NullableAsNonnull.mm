// implicit conversion from nullable pointer 'NSURL * _Nullable' to non-nullable pointer type 'NSURL *
// _Nonnull'
#import "platform/macos/AppKit.h"

void openLink(NSString* address) {
    [NSWorkspace.sharedWorkspace openURL:[NSURL URLWithString:address]];
}
