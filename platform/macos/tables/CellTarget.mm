#import "platform/macos/tables/CellTarget.h"

#include <utility>

@implementation QuorvaneCellTarget

- (void)menuDidClose:(NSMenu*)menu {
    [self receive:menu];
}

- (void)shortcutRecorderDidEndRecording:(SRRecorderControlWithTagid*)recorder {
    [self receive:recorder];
}

@end

namespace quorvane {

QuorvaneCellTarget* targetOf(NSView* view, std::function<void(id)> handler) {
    QuorvaneCellTarget* target = [[QuorvaneCellTarget alloc] initWithHandler:std::move(handler)];
    // A view may have several: each is kept under its own address.
    objc_setAssociatedObject(view, (__bridge const void*)target, target, OBJC_ASSOCIATION_RETAIN_NONATOMIC);
    return target;
}

void observe(NSView* view, NSNotificationName name, id object, std::function<void(id)> handler) {
    [NSNotificationCenter.defaultCenter addObserver:targetOf(view, std::move(handler))
                                           selector:@selector(receive:)
                                               name:name
                                             object:object];
}

} // namespace quorvane
