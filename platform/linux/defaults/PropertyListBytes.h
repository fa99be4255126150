#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/defaults/PropertyListNode.h"

namespace quorvane {

inline constexpr int maximumPropertyListNesting = 256;
/// Ten thousand rules take one megabyte.
inline constexpr std::size_t maximumPropertyListSize = std::size_t{16} << 20;

/// Reads an XML or binary property list. Null for everything that is none, or that is no honest one: nested
/// deeper than that, or blown up beyond any settings.
PropertyListNode readPropertyList(std::string_view bytes);

/// The property list as XML, for people and their editors; none when it cannot be made.
std::optional<std::string> xmlOf(const PropertyListNode& node);

} // namespace quorvane
