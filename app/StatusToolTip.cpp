#include "app/StatusToolTip.h"

#include "settings/Maker.h"

namespace quorvane {

std::string StatusToolTip::text() const {
    const auto current = inputSources_.copyCurrentKeyboardInputSource();
    if (!current) return application_.localizedString("Quorvane");
    const auto front = decision_.lastDecision() ? decision_.lastDecision()->application : std::nullopt;
    const auto wanted = decision_.wantedBy(front);
    auto text = front ? nameOf(*front) + ": " : std::string();
    text += inputSources_.localizedName(*current);
    if (pause_.isOn())
        text += " (" + application_.localizedString("paused") + ")";
    else if (wanted.id == current->id)
        text += " (" + textOf(wanted.reason) + ")";
    return text;
}

std::string StatusToolTip::nameOf(const std::string& bundleIdentifier) const {
    if (bundleIdentifier == maker::bundleIdentifier) return application_.localizedString("Quorvane");
    const auto path = bundles_.absolutePathForAppBundle(bundleIdentifier);
    return path ? bundles_.displayNameAtPath(*path) : bundleIdentifier;
}

std::string StatusToolTip::textOf(InputReason reason) const {
    switch (reason) {
    case InputReason::rule:
        return application_.localizedString("rule");
    case InputReason::launchersRule:
        return application_.localizedString("launcher's rule");
    default:
        return application_.localizedString("default source");
    }
}

} // namespace quorvane
