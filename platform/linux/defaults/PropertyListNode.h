#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/PropertyList.h"

namespace quorvane {

struct PropertyListNodeDeleter {
    void operator()(void* node) const;
};

/// A property list in libplist's own form, which keeps more than the program's values do: unique ids,
/// integers beyond 63 bits, dates far away. What other programs wrote goes back to a file in this form.
using PropertyListNode = std::unique_ptr<void, PropertyListNodeDeleter>;

/// A unique id of the node, libplist's `plist_t`, becomes the dictionary { "CF$UID": number }, which is how
/// an XML property list spells it. What has no counterpart becomes nothing. Dates are exact within 68 years
/// around 2001.
PropertyList propertyListOf(void* node);

/// Calls the handler with each entry of a dictionary node. The entries stay the node's.
void forEachItem(void* dictionary, const std::function<void(const std::string& key, void* item)>& handler);

/// Strings and keys end at their first NUL. `value` must not be nothing; nothing inside a container is left
/// out.
PropertyListNode nodeOf(const PropertyList& value);

} // namespace quorvane
