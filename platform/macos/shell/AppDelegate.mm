#import "platform/macos/shell/AppDelegate.h"

#include <memory>

#include "app/AppDelegate.h"
#import "platform/macos/MacDesktop.h"
#include "platform/macos/foundation/CallProgram.h"

namespace quorvane {
namespace {

/// The program and the desktop it lives on, from the launch on. They live as long as the process.
class RunningProgram {
public:
    void launch() {
        program_.applicationDidFinishLaunching();
        isLaunched_ = true;
    }
    void reopen(bool hasVisibleWindows) {
        // The reminder comes first: until it is answered there is nothing to open.
        if (isLaunched_) program_.applicationShouldHandleReopen(hasVisibleWindows);
    }
    void openPreferences() {
        if (isLaunched_) program_.openPreferences();
    }

private:
    MacDesktop desktop_;
    AppDelegate program_{desktop_.desktop()};
    bool isLaunched_ = false;
};

} // namespace
} // namespace quorvane

@implementation AppDelegate {
    std::unique_ptr<quorvane::RunningProgram> _program;
}

+ (AppDelegate*)appDelegate {
    static AppDelegate* const delegate = [[AppDelegate alloc] init];
    return delegate;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
    quorvane::callProgram([&] {
        self->_program = std::make_unique<quorvane::RunningProgram>();
        self->_program->launch();
    });
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)flag {
    quorvane::callProgram([&] {
        if (self->_program) self->_program->reopen(flag);
    });
    return YES;
}

/// Nothing is left to be done: what was written, the system has.
- (void)applicationWillTerminate:(NSNotification*)notification {
}

- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)app {
    return YES;
}

- (void)openPreferences:(nullable id)sender {
    quorvane::callProgram([&] {
        if (self->_program) self->_program->openPreferences();
    });
}

@end
