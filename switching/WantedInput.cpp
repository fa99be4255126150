#include "switching/WantedInput.h"

#include <utility>

#include "settings/AppRule.h"

namespace quorvane {

WantedInput wantedInput(const PropertyList& autoInput, const std::optional<std::string>& bundleIdentifier,
                        bool isLauncher, const std::optional<std::string>& defaultInput) {
    if (bundleIdentifier) {
        if (auto id = AppRule::ofApplication(autoInput, *bundleIdentifier).id())
            return {std::move(id), isLauncher ? InputReason::launchersRule : InputReason::rule};
    }
    return {defaultInput, defaultInput ? InputReason::defaultSource : InputReason::nothing};
}

} // namespace quorvane
