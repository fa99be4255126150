#include "platform/linux/defaults/SettingsText.h"

#include <algorithm>
#include <utility>

#include <plist/plist.h>

#include "platform/linux/defaults/PropertyListBytes.h"
#include "platform/linux/defaults/PropertyListShape.h"

namespace quorvane {
namespace {

constexpr std::string_view head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                  "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                  "<plist version=\"1.0\">\n<dict>\n";
constexpr std::string_view tail = "</dict>\n</plist>\n";
constexpr std::string_view keyStart = "\t<key>";
constexpr std::string_view keyEnd = "</key>";
constexpr std::string_view nextKey = "\n\t<key>";

/// Takes entries off the text that stands between head and tail. Nothing of it is trusted that was not read
/// before: an entry has to be a whole one.
class EntryReader {
public:
    EntryReader(std::string_view text, const SettingsEntries& before)
        : text_(text)
        , before_(before)
        , expected_(before.begin()) {}

    std::optional<SettingsEntries> read() {
        while (!text_.empty())
            if (!takeKnown(expected_) && !takeKnown(before_.find(key())) && !takeNew()) return std::nullopt;
        return std::move(entries_);
    }

private:
    /// The next key as it stands there; with `&` or the like in it, it is just not found.
    std::string_view key() const {
        if (!text_.starts_with(keyStart)) return {};
        return text_.substr(keyStart.size(), text_.find(keyEnd) - keyStart.size());
    }

    bool takeKnown(SettingsEntries::const_iterator known) {
        if (known == before_.end() || !text_.starts_with(known->second->xml)) return false;
        text_.remove_prefix(known->second->xml.size());
        entries_.insert_or_assign(known->first, known->second);
        expected_ = std::next(known);
        return true;
    }

    bool takeNew() {
        const auto end = text_.find(nextKey);
        const auto lines = end == std::string_view::npos ? text_ : text_.substr(0, end + 1);
        if (!lines.starts_with(keyStart) || !lines.ends_with('\n')) return false;
        if (!isWholeXml(lines, maximumPropertyListNesting - 1)) return false;
        const auto node = readPropertyList(std::string(head).append(lines).append(tail));
        if (!node || plist_get_node_type(node.get()) != PLIST_DICT || plist_dict_get_size(node.get()) != 1)
            return false;
        forEachItem(node.get(), [&](const std::string& key, void* item) {
            const SettingsEntry entry{propertyListOf(item), std::string(lines)};
            entries_.insert_or_assign(key, std::make_shared<const SettingsEntry>(entry));
            expected_ = before_.upper_bound(key);
        });
        text_.remove_prefix(lines.size());
        return true;
    }

    std::string_view text_;
    const SettingsEntries& before_;
    SettingsEntries::const_iterator expected_;
    SettingsEntries entries_;
};

/// Of files that look like ours.
std::optional<SettingsEntries> readByEntry(std::string_view bytes, const SettingsEntries& before) {
    const bool isFramed =
        bytes.size() >= head.size() + tail.size() && bytes.starts_with(head) && bytes.ends_with(tail);
    if (!isFramed || bytes.size() > maximumPropertyListSize) return std::nullopt;
    return EntryReader(bytes.substr(head.size(), bytes.size() - head.size() - tail.size()), before).read();
}

bool hold(const SettingsEntries& entries, const PropertyList::Dictionary& values) {
    return std::ranges::equal(entries, values, [](const auto& entry, const auto& value) {
        return entry.first == value.first && entry.second->value == value.second;
    });
}

/// Of any property list. As text it keeps what the program's values cannot hold, like dates of other ages;
/// but texts of binary lists may hold a NUL, and XML cannot.
std::optional<SettingsEntries> readWhole(std::string_view bytes) {
    const auto node = readPropertyList(bytes);
    if (!node || plist_get_node_type(node.get()) != PLIST_DICT) return std::nullopt;
    const auto value = propertyListOf(node.get());
    if (const auto xml = xmlOf(node)) {
        if (auto entries = readByEntry(*xml, {}); entries && hold(*entries, *value.dictionary()))
            return entries;
    }
    SettingsEntries entries;
    for (const auto& [key, item] : *value.dictionary())
        if (auto entry = makeSettingsEntry(key, item)) entries.insert_or_assign(key, std::move(entry));
    return entries;
}

} // namespace

std::optional<SettingsText> SettingsText::read(std::string_view bytes, const SettingsText& before) {
    auto entries = readByEntry(bytes, before.entries_);
    if (!entries) entries = readWhole(bytes);
    if (!entries) return std::nullopt;
    return SettingsText(*std::move(entries));
}

SettingsText::SettingsText(SettingsEntries entries) : entries_(std::move(entries)) {
    PropertyList::Dictionary values;
    for (const auto& [key, entry] : entries_)
        if (!entry->value.isNothing()) values.emplace(key, entry->value);
    values_ = std::move(values);
}

SettingsText SettingsText::with(const SettingsEntries& changes) const {
    auto entries = entries_;
    for (const auto& [key, entry] : changes) {
        if (entry)
            entries.insert_or_assign(key, entry);
        else
            entries.erase(key);
    }
    return SettingsText(std::move(entries));
}

std::size_t SettingsText::size() const {
    std::size_t size = 0;
    for (const auto piece : pieces())
        size += piece.size();
    return size;
}

std::vector<std::string_view> SettingsText::pieces() const {
    std::vector<std::string_view> pieces{head};
    for (const auto& [key, entry] : entries_)
        pieces.emplace_back(entry->xml);
    pieces.push_back(tail);
    return pieces;
}

} // namespace quorvane
