#pragma once

#include <optional>
#include <string>

#include "platform/CellView.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

// The text of a table that has the keyboard.

/// Nil when there is none.
NSTextField* _Nullable editedField(NSTableView* _Nonnull table);

/// What stood in a field before it was edited; nothing for any other control.
std::optional<std::string> textBefore(NSControl* _Nonnull control);

/// Whether this is the cell that the field was made for, as far as its text tells.
bool isStillIn(NSTextField* _Nonnull field, const CellView& cell);

} // namespace quorvane
