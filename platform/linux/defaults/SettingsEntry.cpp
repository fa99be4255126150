#include "platform/linux/defaults/SettingsEntry.h"

#include <plist/plist.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/linux/defaults/PropertyListBytes.h"
#include "platform/linux/defaults/XmlText.h"

namespace quorvane {
namespace {

constexpr int outerDictionary = 1;

std::string_view refusalOf(const PropertyList& value, int room) {
    if (const auto* text = value.string())
        return isXmlText(*text) ? "" : "it has characters that XML has not";
    const auto* array = value.array();
    const auto* dictionary = value.dictionary();
    if (!array && !dictionary) return "";
    if (room == 0) return "it is nested too deep";
    std::string_view refusal;
    if (array) {
        for (auto item = array->begin(); refusal.empty() && item != array->end(); ++item)
            refusal = refusalOf(*item, room - 1);
        return refusal;
    }
    for (auto item = dictionary->begin(); refusal.empty() && item != dictionary->end(); ++item)
        refusal = isXmlText(item->first) ? refusalOf(item->second, room - 1) : refusalOf(item->first, room);
    return refusal;
}

/// The lines between the outer tags of a dictionary.
std::optional<std::string> linesOf(const PropertyListNode& dictionary) {
    constexpr std::string_view start = "<dict>\n";
    const auto xml = xmlOf(dictionary);
    if (!xml) return std::nullopt;
    const auto first = xml->find(start);
    const auto last = xml->rfind("</dict>");
    if (first == std::string::npos || last == std::string::npos) return std::nullopt;
    return xml->substr(first + start.size(), last - first - start.size());
}

} // namespace

std::string_view refusalOf(std::string_view key, const PropertyList& value) {
    const auto refusal = refusalOf(PropertyList(key), 0);
    return refusal.empty() ? refusalOf(value, maximumPropertyListNesting - outerDictionary) : refusal;
}

std::shared_ptr<const SettingsEntry> makeSettingsEntry(const std::string& key, const PropertyList& value) {
    const PropertyListNode dictionary(plist_new_dict());
    plist_dict_set_item(dictionary.get(), key.c_str(), nodeOf(value).release());
    auto lines = linesOf(dictionary);
    if (!lines) return nullptr;
    return std::make_shared<const SettingsEntry>(SettingsEntry{value, *std::move(lines)});
}

} // namespace quorvane
