#pragma once

#include "platform/ApplicationBundles.h"
#include "platform/Workspace.h"
#include "platform/linux/applications/DesktopEntries.h"

namespace quorvane {

/// The installed applications. An application's bundle is its desktop file, or if it has none, its program:
/// the one of its name, as windows usually name it, or the one that is running.
class LinuxApplicationBundles : public ApplicationBundles {
public:
    /// Both must outlive this object.
    LinuxApplicationBundles(DesktopEntries& entries, const Workspace& workspace)
        : entries_(entries)
        , workspace_(workspace) {}

    std::optional<std::string> absolutePathForAppBundle(std::string_view bundleIdentifier) const override;
    std::string displayNameAtPath(std::string_view path) const override;
    ImageRef iconForFile(std::string_view path) const override;

private:
    std::optional<std::string> programOf(std::string_view bundleIdentifier) const;

    DesktopEntries& entries_;
    const Workspace& workspace_;
};

} // namespace quorvane
