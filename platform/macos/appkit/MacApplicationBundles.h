#pragma once

#include "platform/ApplicationBundles.h"

namespace quorvane {

/// The installed applications, as Launch Services knows them.
class MacApplicationBundles : public ApplicationBundles {
public:
    std::optional<std::string> absolutePathForAppBundle(std::string_view bundleIdentifier) const override;
    std::string displayNameAtPath(std::string_view path) const override;
    ImageRef iconForFile(std::string_view path) const override;
};

} // namespace quorvane
