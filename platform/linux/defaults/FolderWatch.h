#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include <QSocketNotifier>

#include "platform/linux/defaults/FileDescriptor.h"

namespace quorvane {

/// Tells when files in a folder have been written or replaced. Asks the kernel for nothing else, so that
/// reading and locking them wakes nobody.
class FolderWatch {
public:
    /// Makes the folder when it is missing. Without it, or where the kernel refuses, it says so in one line
    /// and tells of nothing.
    FolderWatch(const std::filesystem::path& folder, std::function<void()> changed);

private:
    void readEvents();

    FileDescriptor inotify_;
    std::function<void()> changed_;
    std::unique_ptr<QSocketNotifier> events_;
};

} // namespace quorvane
