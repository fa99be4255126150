#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyList.h"

namespace quorvane {

/// Reads a property list, XML or binary. None when it is malformed, or nested so deep that it cannot have
/// been meant.
std::optional<PropertyList> parsePropertyList(std::string_view bytes);

/// The property list as XML, which people can read and edit.
std::string toXml(const PropertyList& value);

} // namespace quorvane
