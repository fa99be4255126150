#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/UserDefaults.h"
#include "settings/Keys.h"

namespace quorvane {

/// The input source of every application without one of its own.
inline std::optional<std::string> defaultInput(const UserDefaults& standard) {
    return standard.stringForKey(key::defaultInput);
}

/// Not synchronized: the store writes it in its own time.
inline void setDefaultInput(UserDefaults& standard, std::optional<std::string_view> id) {
    if (id)
        standard.setObject(*id, key::defaultInput);
    else
        standard.removeObjectForKey(key::defaultInput);
}

} // namespace quorvane
