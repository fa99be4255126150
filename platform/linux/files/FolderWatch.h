#pragma once

#include <QSocketNotifier>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {

/// Tells, from the event loop, which files of a folder somebody finished writing, moved in or removed. While
/// the folder or those above it are missing, the watch waits for them.
class FolderWatch {
public:
    /// The handler gets the file's name, or an empty one when any file may have changed.
    FolderWatch(std::filesystem::path folder, std::function<void(std::string_view fileName)> handler);

private:
    void watch();
    void read();

    std::filesystem::path folder_;
    std::function<void(std::string_view)> handler_;
    FileDescriptor inotify_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::filesystem::path awaited_; ///< The first missing one of the folder and those above it.
    int folderWatch_ = -1;
    int parentWatch_ = -1;
};

} // namespace quorvane
