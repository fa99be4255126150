#pragma once

#include <functional>
#include <string_view>

#include "platform/UserDefaults.h"

namespace quorvane {

using DictionaryChange = std::function<void(PropertyList::Dictionary&)>;
using ArrayChange = std::function<void(PropertyList::Array&)>;

// The one way in which a stored container is changed: read it, change a copy, write the whole copy back,
// `synchronize` the same store. A missing container, or something else under its key, reads as an empty one.

void changeDictionary(UserDefaults& defaults, std::string_view key, const DictionaryChange& change);
void changeArray(UserDefaults& defaults, std::string_view key, const ArrayChange& change);

/// Changes the dictionary `record` that stands under `entry` of the dictionary under `key`; made when
/// missing.
void changeRecord(UserDefaults& defaults, std::string_view key, std::string_view entry,
                  const DictionaryChange& change);

/// Changes the dictionary at an index of the array under `key`. An index out of range, or an element that is
/// no dictionary, changes nothing.
void changeRecord(UserDefaults& defaults, std::string_view key, std::size_t index,
                  const DictionaryChange& change);

} // namespace quorvane
