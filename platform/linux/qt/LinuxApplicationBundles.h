#pragma once

#include "platform/ApplicationBundles.h"
#include "platform/linux/applications/DesktopEntries.h"

namespace quorvane {

/// The installed applications, by their desktop files: an application's bundle is its desktop file.
class LinuxApplicationBundles : public ApplicationBundles {
public:
    explicit LinuxApplicationBundles(DesktopEntries& entries) : entries_(entries) {}

    std::optional<std::string> absolutePathForAppBundle(std::string_view bundleIdentifier) const override;
    std::string displayNameAtPath(std::string_view path) const override;
    ImageRef iconForFile(std::string_view path) const override;

private:
    DesktopEntries& entries_;
};

} // namespace quorvane
