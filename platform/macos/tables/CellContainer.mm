#import "platform/macos/tables/CellContainer.h"

#include <utility>
#include <vector>

#include "platform/macos/tables/CellLayout.h"

namespace {

using PlacedPart = std::pair<quorvane::CellPart, NSView*>;

void place(const PlacedPart& part, NSSize cell) {
    const auto frame = quorvane::placeIn({cell.width, cell.height}, part.first);
    part.second.frame = NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}

} // namespace

@implementation QuorvaneCellContainer {
    std::vector<PlacedPart> _parts;
}

- (void)addPart:(const quorvane::CellPart&)part asView:(NSView*)view {
    // The parts' places follow from the container's size alone.
    view.autoresizingMask = NSViewNotSizable;
    _parts.emplace_back(part, view);
    place(_parts.back(), self.frame.size);
    [self addSubview:view];
}

- (void)setFrameSize:(NSSize)newSize {
    [super setFrameSize:newSize];
    for (const auto& part : _parts)
        place(part, newSize);
}

@end
