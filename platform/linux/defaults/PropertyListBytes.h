#pragma once

#include <string>
#include <string_view>

#include "platform/linux/defaults/PropertyListNode.h"

namespace quorvane {

inline constexpr int maximumNesting = 256;

/// Reads an XML or binary property list. Null for everything that is none, or that is no honest one: nested
/// deeper than `nesting` containers, or blown up beyond any settings.
PropertyListNode readPropertyList(std::string_view bytes, int nesting = maximumNesting);

/// The property list as XML, for people and their editors.
std::string xmlOf(plist_t node);

} // namespace quorvane
