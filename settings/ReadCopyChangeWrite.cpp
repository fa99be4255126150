#include "settings/ReadCopyChangeWrite.h"

#include <utility>

namespace quorvane {
namespace {

PropertyList::Dictionary mutableCopy(const PropertyList& value) {
    const auto* dictionary = value.dictionary();
    return dictionary ? *dictionary : PropertyList::Dictionary{};
}

} // namespace

void changeDictionary(UserDefaults& defaults, std::string_view key, const DictionaryChange& change) {
    auto copy = mutableCopy(defaults.objectForKey(key));
    change(copy);
    defaults.setObject(std::move(copy), key);
    defaults.synchronize();
}

void changeArray(UserDefaults& defaults, std::string_view key, const ArrayChange& change) {
    const auto stored = defaults.objectForKey(key);
    const auto* array = stored.array();
    auto copy = array ? *array : PropertyList::Array{};
    change(copy);
    defaults.setObject(std::move(copy), key);
    defaults.synchronize();
}

void changeRecord(UserDefaults& defaults, std::string_view key, std::string_view entry,
                  const DictionaryChange& change) {
    changeDictionary(defaults, key, [&](PropertyList::Dictionary& records) {
        auto& stored = records[std::string(entry)];
        auto record = mutableCopy(stored);
        change(record);
        stored = std::move(record);
    });
}

void changeRecord(UserDefaults& defaults, std::string_view key, std::size_t index,
                  const DictionaryChange& change) {
    const auto stored = defaults.objectForKey(key);
    const auto* array = stored.array();
    if (!array || index >= array->size() || !(*array)[index].dictionary()) return;
    changeArray(defaults, key, [&](PropertyList::Array& records) {
        auto record = mutableCopy(records[index]);
        change(record);
        records[index] = std::move(record);
    });
}

} // namespace quorvane
