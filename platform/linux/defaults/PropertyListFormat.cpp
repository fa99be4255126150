#include "platform/linux/defaults/PropertyListFormat.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>

#include <plist/plist.h>

namespace quorvane {
namespace {

constexpr int deepestNesting = 128;

struct PlistDeleter {
    void operator()(void* node) const { plist_free(node); }
};
using PlistNode = std::unique_ptr<void, PlistDeleter>;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(*-no-malloc): made by the library
};

std::optional<PropertyList> convert(plist_t node, int depth);

std::optional<PropertyList> convertArray(plist_t node, int depth) {
    PropertyList::Array array;
    for (std::uint32_t i = 0; i < plist_array_get_size(node); ++i) {
        auto element = convert(plist_array_get_item(node, i), depth);
        if (!element) return std::nullopt;
        array.push_back(std::move(*element));
    }
    return array;
}

std::optional<PropertyList> convertDictionary(plist_t node, int depth) {
    PropertyList::Dictionary dictionary;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const std::unique_ptr<void, FreeDeleter> iterator(position);
    for (;;) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, position, &key, &value);
        if (!value) return dictionary;
        const std::unique_ptr<char, FreeDeleter> owned(key);
        auto entry = convert(value, depth);
        if (!entry) return std::nullopt;
        dictionary.insert_or_assign(key, std::move(*entry));
    }
}

std::optional<PropertyList> convert(plist_t node, int depth) {
    if (depth > deepestNesting) return std::nullopt;
    std::uint64_t length = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return PropertyList(value != 0);
    }
    case PLIST_UINT: {
        std::uint64_t value = 0;
        plist_get_uint_val(node, &value); // negative numbers come as their two's complement
        return PropertyList(static_cast<std::int64_t>(value));
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return PropertyList(value);
    }
    case PLIST_STRING: {
        const auto* text = plist_get_string_ptr(node, &length);
        return PropertyList(text ? std::string(text, length) : std::string());
    }
    case PLIST_DATA: {
        const auto* bytes = plist_get_data_ptr(node, &length);
        return PropertyList(PropertyList::Data(bytes, bytes + length));
    }
    case PLIST_DATE: {
        std::int32_t seconds = 0;
        std::int32_t microseconds = 0;
        plist_get_date_val(node, &seconds, &microseconds);
        return PropertyList(PropertyList::Date{seconds + microseconds / 1e6});
    }
    case PLIST_UID: {
        std::uint64_t value = 0;
        plist_get_uid_val(node, &value);
        return PropertyList(
            PropertyList::Dictionary{{"CF$UID", static_cast<std::int64_t>(value)}}); // as in XML
    }
    case PLIST_ARRAY:
        return convertArray(node, depth + 1);
    case PLIST_DICT:
        return convertDictionary(node, depth + 1);
    default:
        return std::nullopt;
    }
}

plist_t makeNode(const PropertyList& value) {
    if (const auto* boolean = value.boolean()) return plist_new_bool(*boolean ? 1 : 0);
    if (const auto* integer = value.integer()) return plist_new_uint(static_cast<std::uint64_t>(*integer));
    if (const auto* real = value.real()) return plist_new_real(*real);
    if (const auto* text = value.string()) return plist_new_string(text->c_str());
    if (const auto* data = value.data())
        return plist_new_data(reinterpret_cast<const char*>(data->data()), data->size());
    if (const auto* date = value.date()) {
        using Limits = std::numeric_limits<std::int32_t>;
        const auto seconds = std::clamp(date->secondsSince2001, double(Limits::min()), double(Limits::max()));
        return plist_new_date(static_cast<std::int32_t>(seconds), 0);
    }
    if (const auto* array = value.array()) {
        auto* node = plist_new_array();
        for (const auto& element : *array)
            plist_array_append_item(node, makeNode(element));
        return node;
    }
    auto* node = plist_new_dict();
    if (const auto* dictionary = value.dictionary()) {
        for (const auto& [key, entry] : *dictionary)
            plist_dict_set_item(node, key.c_str(), makeNode(entry));
    }
    return node;
}

/// The library frees what it has read by recursion: what is nested without end must not get there.
bool isNestedTooDeep(std::string_view xml) {
    int depth = 0;
    for (auto tag = xml.find('<'); tag != std::string_view::npos; tag = xml.find('<', tag + 1)) {
        const auto rest = xml.substr(tag);
        if (rest.starts_with("<dict") || rest.starts_with("<array")) {
            if (++depth > deepestNesting) return true;
        } else if (rest.starts_with("</dict") || rest.starts_with("</array")) {
            --depth;
        }
    }
    return false;
}

} // namespace

std::optional<PropertyList> parsePropertyList(std::string_view bytes) {
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max() || isNestedTooDeep(bytes))
        return std::nullopt;
    plist_t root = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    const PlistNode owned(root);
    if (!root) return std::nullopt;
    return convert(root, 0);
}

std::string toXml(const PropertyList& value) {
    const PlistNode root(makeNode(value));
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(root.get(), &xml, &length);
    const std::unique_ptr<char, FreeDeleter> owned(xml);
    return xml ? std::string(xml, length) : std::string();
}

} // namespace quorvane
