#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/ApplicationBundles.h"
#include "platform/linux/desktop-files/DesktopEntries.h"

namespace quorvane {

/// The installed applications. An application's bundle is its desktop file, or if it has none, the program of
/// its name. What has neither, like a program that an interpreter runs or one outside the usual folders, is
/// taken for installed, with nothing but its name; only ids in the style of desktop files ("org.kde.kate")
/// are those of applications that were removed.
class LinuxApplicationBundles : public ApplicationBundles {
public:
    /// The picture of an icon's name or path; null when it cannot be made.
    using MakeIcon = std::function<ImageRef(const std::string& icon)>;

    /// `entries` must outlive this object. Without a way to make icons there are none.
    explicit LinuxApplicationBundles(DesktopEntries& entries, MakeIcon makeIcon = {})
        : entries_(entries)
        , makeIcon_(std::move(makeIcon)) {}

    /// Where there is no file, the name instead of a path.
    std::optional<std::string> absolutePathForAppBundle(std::string_view bundleIdentifier) const override;
    std::string displayNameAtPath(std::string_view path) const override;
    ImageRef iconForFile(std::string_view path) const override;

private:
    DesktopEntries& entries_;
    MakeIcon makeIcon_;
};

} // namespace quorvane
