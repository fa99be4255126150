#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyList.h"

namespace quorvane {

enum class JsonForm { indented, oneLine };

/// With a line break at the end. Only for what JSON has: see control/PlainValue.h.
std::string jsonOf(const PropertyList& value, JsonForm form = JsonForm::indented);

/// None for what is no JSON, and why is said in `error`.
std::optional<PropertyList> readJson(std::string_view text, std::string& error);

} // namespace quorvane
