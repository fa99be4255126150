#pragma once

#include <string>

#include "platform/ApplicationBundles.h"
#include "platform/CellView.h"
#include "preferences/PreferencesLists.h"

namespace quorvane {

// Cells that more than one table has.

inline constexpr double rowHeight = 25; // points
inline constexpr Rect wideCell{0, 0, 1000, rowHeight};

/// A text on one line that may be wider than its column.
TextFieldPart creatNSTextFieldWithStringValue(const std::string& stringValue, bool setToolTip, int atRow);

/// The icon of an installed application; nothing in it for one that is not installed.
CellView applicationIconCell(const ApplicationBundles& bundles, const std::string& bundleIdentifier);

/// A menu of input sources with the one of this id selected, or else the first item. `offersNone`: with "-"
/// at its head.
PopUpButtonPart inputPopUp(PreferencesLists& lists, int row, bool offersNone,
                           const std::optional<std::string>& selectedId);

/// The id of the first source of this name; none for "-".
std::optional<std::string> idOfInputNamed(const InputSourceCatalogue& inputs, std::string_view inputName);

} // namespace quorvane
