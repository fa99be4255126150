#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/CommandResult.h"
#include "control/Named.h"

namespace quorvane {

/// What names in commands may mean.
struct KnownNames {
    std::function<std::vector<Named>()> applications; ///< That run or are installed.
    std::function<bool(std::string_view)> isProgram;  ///< There is a program of this name or path.

    std::function<std::vector<Named>()> sources;

    /// It has the form of a source's id. Where nobody knows which sources there are, ids of that form do.
    std::function<bool(std::string_view)> isSourceID;

    /// Either what was meant, or what is to be told.
    struct Found {
        std::optional<Named> one;
        CommandResult failure;
    };

    Found application(std::string_view text, const std::vector<Named>& moreOfThem) const;

    /// `settings`: the ids of sources that are set somewhere, and perhaps not there any more.
    Found source(std::string_view text, const std::vector<std::string>& settings) const;
};

} // namespace quorvane
