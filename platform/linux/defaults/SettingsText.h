#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/linux/defaults/SettingsEntry.h"

namespace quorvane {

/// What a settings file holds: a dictionary, and its text entry by entry. Reading a new version of a file,
/// and making one, costs what changed, and a look at the bytes that did not.
class SettingsText {
public:
    SettingsText() = default;

    /// Reads a whole file. Entries that are as they were in `before` are taken from there. None when the
    /// bytes are no property list, or not one of a dictionary.
    static std::optional<SettingsText> read(std::string_view bytes, const SettingsText& before);

    /// A dictionary; its containers are the same objects as long as nobody changed their entry.
    const PropertyList& values() const { return values_; }

    SettingsText with(const SettingsEntries& changes) const;

    std::size_t size() const; ///< In bytes, as a file.

    /// The file's bytes, in order. They live as long as this.
    std::vector<std::string_view> pieces() const;

private:
    explicit SettingsText(SettingsEntries entries);

    SettingsEntries entries_;
    PropertyList values_ = PropertyList::Dictionary{};
};

} // namespace quorvane
