#pragma once

#include "platform/PropertyList.h"

namespace quorvane {

// Property lists made of what every notation for data has: truths, numbers, texts, arrays and dictionaries.
// Values of other types, and numbers that would come back as another type, are dictionaries with one entry
// whose key begins with "$": {"$data": "0aff"}, {"$date": "63072000"} in seconds since 2001, {"$real": "1"}.
// A dictionary that looks like one of these is wrapped itself: {"$dictionary": …}. So any property list
// comes back as it was.

PropertyList plainOf(const PropertyList& value);
PropertyList ofPlain(const PropertyList& plain);

} // namespace quorvane
