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

    /// What is missing or no number is 0. None when the record tells neither of a key nor of modifiers.
    static std::optional<InputShortcut> ofRecord(const PropertyList& record);

    /// As it is stored.
    PropertyList record() const;

    /// Whether it is one of F1 to F20.
    static bool isFunctionKey(std::int64_t keyCode);
};

// Edits in the standard defaults, each followed by `synchronize`.

/// `record` is stored as it is, whatever is in it.
void setShortcut(UserDefaults& standard, std::string_view inputSourceID, const PropertyList& record);
void removeShortcut(UserDefaults& standard, std::string_view inputSourceID);

} // namespace quorvane
