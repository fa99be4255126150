#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Image.h"
#include "platform/PropertyList.h"

namespace quorvane {

// What a cell of a table holds, as plain values: a desktop turns them into its own widgets and calls the
// functions in them when the user does something. Frames are in points, from the cell's bottom-left corner.

struct ImageViewPart {
    Rect frame;
    ImageRef image;          ///< Null shows nothing.
    bool isTemplate = false; ///< Only its shape counts, the desktop chooses the colour.
};

struct TextFieldPart {
    Rect frame;
    std::string stringValue;
    std::string toolTip;    ///< Empty: none.
    int tag = 0;            ///< The row.
    std::string identifier; ///< Empty unless it is editable.
    bool isEditable = false;
    double fontSize = 0; ///< Of the system font; 0: the usual one.
};

struct PopUpButtonPart {
    Rect frame;
    std::vector<std::string> itemTitles;
    std::string title; ///< The selected item's; when there is none of this title, the first one is selected.
    int tag = 0;
    bool isBordered = true;
    std::function<void(const std::string& title)> action; ///< The user has chosen an item.
    std::function<void(int tag)> willPopUp;               ///< The menu is about to open.

    /// By its place, since titles may repeat; 0 for an empty menu, too.
    int selectedItem() const {
        const auto found = std::ranges::find(itemTitles, title);
        return found == itemTitles.end() ? 0 : static_cast<int>(found - itemTitles.begin());
    }

    /// The user has chosen the item at this place; nothing happens when there is none.
    void choose(std::int64_t item) const {
        if (action && item >= 0 && item < static_cast<std::int64_t>(itemTitles.size()))
            action(itemTitles[static_cast<std::size_t>(item)]);
    }
};

struct CheckBoxPart {
    Rect frame;
    int state = 0;
    int tag = 0;
    std::function<void(int tag, int state)> action;
};

/// A frame around what comes after it, in the colours of a text field that cannot be used.
struct BoxPart {
    Rect frame;
    double cornerRadius = 0;
};

struct ShortcutRecorderPart {
    Rect frame;
    PropertyList objectValue; ///< Nothing: no shortcut is shown.
    bool hasEntry = false;    ///< Whether there is something to clear, shown or not.
    bool isRefused = false;   ///< There is, but pressing it has no effect.
    std::int64_t tagid = 0;
    std::uint64_t allowedModifierFlags = 0;
    bool allowsEmptyModifierFlags = false;
    std::function<void(std::int64_t tagid, PropertyList objectValue)> didEndRecording;
};

using CellPart =
    std::variant<ImageViewPart, TextFieldPart, PopUpButtonPart, CheckBoxPart, BoxPart, ShortcutRecorderPart>;

struct CellView {
    Rect frame;
    std::vector<CellPart> parts; ///< From back to front.
};

} // namespace quorvane
