#pragma once

#include "platform/macos/tables/MacTableView.h"

namespace quorvane {

/// The window's tables, as their common delegate and data source asks for them.
class PreferencesTables {
public:
    struct Natives {
        NSTableView* applications;
        NSTableView* locations;
        NSView* noLocations; ///< Shown while there are none.
        NSTableView* shortcuts;
    };

    PreferencesTables(const Natives& natives, const HotKeySuspender& suspendHotKeys)
        : applications(natives.applications, suspendHotKeys)
        , locations(natives.locations, suspendHotKeys)
        , shortcuts(natives.shortcuts, suspendHotKeys)
        , noLocations_(natives.noLocations) {}

    MacTableView applications, locations, shortcuts;

    /// `native` is that of one of the three.
    MacTableView& of(NSTableView* native) {
        if (native == applications.native()) return applications;
        return native == locations.native() ? locations : shortcuts;
    }

    NSInteger numberOfRows(NSTableView* native) {
        const auto rows = of(native).numberOfRows();
        if (native == locations.native()) noLocations_.hidden = rows > 0;
        return rows;
    }

    /// Nothing but the names of locations can be edited.
    BOOL textShouldEndEditing(NSControl* control, NSText* fieldEditor) {
        return locations.textShouldEndEditing(control, fieldEditor);
    }

private:
    NSView* noLocations_;
};

} // namespace quorvane
