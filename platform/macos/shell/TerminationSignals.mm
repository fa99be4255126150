#import "platform/macos/shell/TerminationSignals.h"

#include <csignal>
#include <initializer_list>

#include "platform/macos/appkit/MacApplication.h"
#include "platform/macos/foundation/CallProgram.h"

namespace quorvane {

NSArray* terminateOnSignals() {
    NSMutableArray* sources = [NSMutableArray array];
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(number, SIG_IGN); // A source only watches; the signal itself would end the process.
        dispatch_source_t source = dispatch_source_create(
            DISPATCH_SOURCE_TYPE_SIGNAL, static_cast<uintptr_t>(number), 0, dispatch_get_main_queue());
        if (!source) continue;
        dispatch_source_set_event_handler(source, ^{
          callProgram([] { MacApplication().terminate(); });
        });
        dispatch_resume(source);
        [sources addObject:source];
    }
    return sources;
}

} // namespace quorvane
