#include "platform/UserDefaults.h"

namespace quorvane {

std::optional<std::string> UserDefaults::stringForKey(std::string_view key) const {
    const auto value = objectForKey(key);
    if (const auto* text = value.string()) return *text;
    return std::nullopt;
}

} // namespace quorvane
