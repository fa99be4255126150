#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "control/CommandResult.h"
#include "control/Named.h"

namespace quorvane {

/// What names in commands may mean.
struct KnownNames {
    std::function<std::vector<Named>()> applications; ///< That run or are installed.
    std::function<bool(std::string_view)> isProgram;  ///< There is a program of this name or path.

    /// Without a function nobody knows which sources there are, and an id is taken as it stands.
    std::function<std::vector<Named>()> sources;

    /// Either what was meant, or what is to be told.
    struct Found {
        std::optional<Named> one;
        CommandResult failure;
    };

    Found application(std::string_view text, const std::vector<Named>& moreOfThem) const;
    Found source(std::string_view text, const std::vector<Named>& moreOfThem) const;
};

} // namespace quorvane
