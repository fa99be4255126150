#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/UserDefaults.h"

namespace quorvane {

/// A recorded key combination: the value stored in "shortcutOfInput" under the id of the input source that it
/// selects.
struct InputShortcut {
    std::int64_t keyCode = 0;       ///< The key's position on the keyboard, whatever is printed on it.
    std::int64_t modifierFlags = 0; ///< Device-independent modifier bits.

    bool operator==(const InputShortcut&) const = default;

    /// None when the stored value is no dictionary of two numbers.
    static std::optional<InputShortcut> ofRecord(const PropertyList& record);

    /// A combination without modifiers is valid only for the keys F1 to F20.
    bool isValid() const;
};

// Edits in the standard defaults, each followed by `synchronize`.

void setShortcut(UserDefaults& standard, std::string_view inputSourceID, const InputShortcut& shortcut);
void removeShortcut(UserDefaults& standard, std::string_view inputSourceID);

} // namespace quorvane
