#pragma once

#include <string>
#include <vector>

#include "input/InputSourceCatalogue.h"

namespace quorvane {

/// What the window's three tables share. Read when the window is made; edits keep it up to date.
struct PreferencesLists {
    std::vector<std::string>
        arrOfApps; ///< The bundle identifiers of the application rules table, row by row.
    InputSourceCatalogue inputs;

    /// The row of the input menu that was opened last, in whichever table: the choice in it counts for that
    /// row.
    int rowOfPopUpButton = 0;

    bool isClosingPreferences = false; ///< A running setup is being stopped because the window closes.

    /// Null beyond the rows.
    const std::string* applicationAt(int row) const {
        return row >= 0 && static_cast<std::size_t>(row) < arrOfApps.size()
                   ? &arrOfApps[static_cast<std::size_t>(row)]
                   : nullptr;
    }
};

} // namespace quorvane
