#include "platform/linux/defaults/PropertyListNode.h"

#include <plist/plist.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace quorvane {
namespace {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Freed = std::unique_ptr<T, FreeDeleter>;

PropertyList stringOf(plist_t node) {
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return text ? std::string(text, length) : std::string();
}

PropertyList dataOf(plist_t node) {
    std::uint64_t length = 0;
    const char* bytes = plist_get_data_ptr(node, &length);
    return bytes ? PropertyList::Data(bytes, bytes + length) : PropertyList::Data();
}

PropertyList dateOf(plist_t node) {
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0; // its sign is lost: it counts away from zero
    plist_get_date_val(node, &seconds, &microseconds);
    const double fraction = microseconds / 1e6;
    return PropertyList::Date{seconds < 0 ? seconds - fraction : seconds + fraction};
}

PropertyList arrayOf(plist_t node) {
    PropertyList::Array array;
    const auto size = plist_array_get_size(node);
    array.reserve(size);
    for (std::uint32_t index = 0; index < size; ++index)
        array.push_back(propertyListOf(plist_array_get_item(node, index)));
    return array;
}

PropertyList dictionaryOf(plist_t node) {
    PropertyList::Dictionary dictionary;
    forEachItem(node, [&](const std::string& key, plist_t item) {
        if (auto value = propertyListOf(item); !value.isNothing())
            dictionary.insert_or_assign(key, std::move(value));
    });
    return dictionary;
}

PropertyListNode nodeOfDate(PropertyList::Date date) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(date.secondsSince2001)) return PropertyListNode(plist_new_date(0, 0));
    const double seconds =
        std::clamp<double>(std::floor(date.secondsSince2001), Limits::min(), Limits::max());
    const double fraction = std::clamp(date.secondsSince2001 - seconds, 0.0, 0.999999);
    return PropertyListNode(
        plist_new_date(static_cast<std::int32_t>(seconds), static_cast<std::int32_t>(fraction * 1e6)));
}

} // namespace

void PropertyListNodeDeleter::operator()(void* node) const {
    plist_free(node);
}

void forEachItem(void* dictionary, const std::function<void(const std::string&, void*)>& handler) {
    plist_dict_iter rawIterator = nullptr;
    plist_dict_new_iter(dictionary, &rawIterator);
    const Freed<void> iterator(rawIterator);
    while (true) {
        char* rawKey = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(dictionary, iterator.get(), &rawKey, &item);
        const Freed<char> key(rawKey);
        if (!item) return;
        if (key) handler(key.get(), item);
    }
}

PropertyList propertyListOf(void* node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT: {
        std::uint64_t value = 0; // negative numbers come as their two's complement
        plist_get_uint_val(node, &value);
        return static_cast<std::int64_t>(value);
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_UID: {
        std::uint64_t value = 0;
        plist_get_uid_val(node, &value);
        return PropertyList::Dictionary{{"CF$UID", static_cast<std::int64_t>(value)}};
    }
    case PLIST_STRING:
        return stringOf(node);
    case PLIST_DATA:
        return dataOf(node);
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_ARRAY:
        return arrayOf(node);
    case PLIST_DICT:
        return dictionaryOf(node);
    default:
        return {};
    }
}

PropertyListNode nodeOf(const PropertyList& value) {
    if (const auto* boolean = value.boolean()) return PropertyListNode(plist_new_bool(*boolean ? 1 : 0));
    if (const auto* integer = value.integer())
        return PropertyListNode(plist_new_uint(static_cast<std::uint64_t>(*integer)));
    if (const auto* real = value.real()) return PropertyListNode(plist_new_real(*real));
    if (const auto* date = value.date()) return nodeOfDate(*date);
    if (const auto* data = value.data())
        return PropertyListNode(plist_new_data(reinterpret_cast<const char*>(data->data()), data->size()));
    if (const auto* array = value.array()) {
        PropertyListNode node(plist_new_array());
        for (const auto& item : *array)
            if (!item.isNothing()) plist_array_append_item(node.get(), nodeOf(item).release());
        return node;
    }
    if (const auto* dictionary = value.dictionary()) {
        PropertyListNode node(plist_new_dict());
        for (const auto& [key, item] : *dictionary)
            if (!item.isNothing()) plist_dict_set_item(node.get(), key.c_str(), nodeOf(item).release());
        return node;
    }
    const auto* text = value.string();
    return PropertyListNode(plist_new_string(text ? text->c_str() : ""));
}

} // namespace quorvane
