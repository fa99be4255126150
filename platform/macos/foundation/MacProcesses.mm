#include "platform/macos/foundation/MacProcesses.h"

#include <cstdlib>
#include <unistd.h>

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

std::vector<std::string> MacProcesses::relaunchArguments() {
    return {"-n", fromNSString(NSBundle.mainBundle.bundlePath)};
}

void MacProcesses::system(const std::string& command) {
    // The command is the program's own, and running it by the shell is what is asked for.
    [[maybe_unused]] const auto status = std::system(command.c_str()); // NOLINT(bugprone-command-processor)
}

void MacProcesses::launch(const std::string& path, const std::vector<std::string>& arguments) {
    NSString* program = toNSString(path);
    if (!program) return;
    NSMutableArray<NSString*>* list = [NSMutableArray array];
    for (const auto& argument : arguments) {
        // A program that misses an argument does something else than what was asked for.
        NSString* text = toNSString(argument);
        if (!text) return;
        [list addObject:text];
    }
    NSTask* task = [[NSTask alloc] init];
    task.executableURL = [NSURL fileURLWithPath:program];
    task.arguments = list;
    NSError* error = nil;
    if (![task launchAndReturnError:&error])
        NSLog(@"%@ cannot be started: %@", program, error.localizedDescription);
}

void MacProcesses::exit(int status) {
    beforeExit_();
    _exit(status);
}

} // namespace quorvane
