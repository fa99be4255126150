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

    /// Null for one that is none of the three.
    MacTableView* of(NSTableView* native) {
        for (auto* table : {&applications, &locations, &shortcuts})
            if (table->native() == native) return table;
        return nullptr;
    }

    NSInteger numberOfRows(NSTableView* native) {
        const auto* table = of(native);
        const auto rows = table ? table->numberOfRows() : 0;
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
