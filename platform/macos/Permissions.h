#pragma once

#include <vector>

namespace quorvane {

/// Something that the user allows under System Settings > Privacy & Security.
struct Permission {
    const char* name; ///< As it stands there.
    bool isGiven;
};

/// Those that could matter to this program, which needs none of them. The user is asked nothing.
std::vector<Permission> permissions();

} // namespace quorvane
