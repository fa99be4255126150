#pragma once

#import "platform/macos/AppKit.h"

namespace quorvane {

/// Where in a table the keyboard is. A reload takes the widget away that has it, and with it the place from
/// which the Tab key goes on.
class TableFocus {
public:
    explicit TableFocus(NSTableView* _Nonnull table);

    /// Gives the keyboard to the widget that is there now, or else to the table.
    void restore() const;

private:
    NSTableView* _Nonnull table_;
    Class _Nullable kind_ = Nil; ///< Of the widget; none when the keyboard is elsewhere.
    NSInteger row_ = -1;
    NSInteger column_ = -1;
};

} // namespace quorvane
