#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/PropertyList.h"

namespace quorvane {

/// One entry of a settings file: its value, and the lines of XML that stand for it there. It never changes,
/// so that everybody can share it, and what nobody changed is neither parsed nor made into text again.
struct SettingsEntry {
    PropertyList value;
    std::string xml; ///< Key and value, each line indented by one tab at least, with its line end.
};

/// Entries by key. In a list of changes, null removes.
using SettingsEntries = std::map<std::string, std::shared_ptr<const SettingsEntry>, std::less<>>;

/// Why no settings file can hold the entry: what it would not be read back as. Empty when one can.
std::string_view refusalOf(std::string_view key, const PropertyList& value);

/// Null when it cannot be made into text.
std::shared_ptr<const SettingsEntry> makeSettingsEntry(const std::string& key, const PropertyList& value);

} // namespace quorvane
