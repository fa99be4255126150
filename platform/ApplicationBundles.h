#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Image.h"

namespace quorvane {

/// The applications installed on this computer.
class ApplicationBundles {
public:
    virtual ~ApplicationBundles() = default;

    /// Where the application with this bundle identifier is installed; none when it is not.
    virtual std::optional<std::string> absolutePathForAppBundle(std::string_view bundleIdentifier) const = 0;

    /// The name the user knows it by, in the user's language; the file's name when it has no other.
    virtual std::string displayNameAtPath(std::string_view path) const = 0;

    /// Null when the file has no icon or it cannot be read.
    virtual ImageRef iconForFile(std::string_view path) const = 0;
};

} // namespace quorvane
