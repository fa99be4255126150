#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/UserDefaults.h"

namespace quorvane {

/// Everything the user has set, as one dictionary that can be written in any notation and read back, also by
/// people: "rules", "order", "hidden", "locations", "defaultSource", "shortcuts" and "options", and the
/// version of that order under "quorvane". What is not set is left out. Values are as they are stored,
/// whatever they are, in the form of PlainValue.h. What only counts or passes on is no setting: it is left
/// out, too.
PropertyList settingsDocument(UserDefaultsStores& stores);

/// One setting that is to be another: for a dictionary and for the options, one entry.
struct SettingsChange {
    std::string setting; ///< "rules", "options", …
    std::string entry;   ///< In a dictionary; empty otherwise.
    PropertyList before; ///< Nothing: it is new.
    PropertyList after;  ///< Nothing: it goes.
};

enum class ImportManner {
    merge,   ///< What the document does not say stays. Its locations take the place of those they name.
    replace, ///< What it does not say goes.
};

/// What taking over a document would change. None for what is no such document, or of a later version than is
/// known here.
std::optional<std::vector<SettingsChange>> changesBy(const PropertyList& document, UserDefaultsStores& stores,
                                                     ImportManner manner);

/// Makes them. Each store is synchronized once.
void makeChanges(const std::vector<SettingsChange>& changes, UserDefaultsStores& stores);

} // namespace quorvane
