#pragma once

#include <optional>
#include <string>

#include "platform/PropertyList.h"

namespace quorvane {

/// Why an application is to have an input source.
enum class InputReason { nothing, rule, launchersRule, defaultSource };

/// The input source an application is to have, and why; none where nothing says which.
struct WantedInput {
    std::optional<std::string> id;
    InputReason reason = InputReason::nothing;

    bool operator==(const WantedInput&) const = default;
};

/// That of the application's own rule, else the default one, else none. `autoInput` holds the rules by bundle
/// identifier; whatever in it is malformed counts as not there.
WantedInput wantedInput(const PropertyList& autoInput, const std::optional<std::string>& bundleIdentifier,
                        bool isLauncher, const std::optional<std::string>& defaultInput);

} // namespace quorvane
