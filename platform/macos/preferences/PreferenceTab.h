#pragma once

#include <string>
#include <vector>

#import "platform/macos/AppKit.h"

namespace quorvane {

/// The tab of the general settings and the shortcuts.
struct PreferenceTab {
    struct CheckBox {
        NSButton* button;
        std::string defaultsKey; ///< The setting it is to be bound to.
    };

    NSView* view;
    std::vector<CheckBox> checkBoxes;
    NSTableView* shortcuts;
};

PreferenceTab makePreferenceTab();

} // namespace quorvane
