#pragma once

#include "platform/CellView.h"
#import "platform/macos/AppKit.h"

/// A cell of a table, whose parts stand where they belong however wide the column becomes.
@interface QuorvaneCellContainer : NSTableCellView

/// From back to front. A later change of the part does not count.
- (void)addPart:(const quorvane::CellPart&)part asView:(nonnull NSView*)view;
@end
