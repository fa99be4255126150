#pragma once

#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/stat.h>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {

/// Creates the folder, and those it lies in, for this user alone. An error unless it is there afterwards.
std::error_code makePrivateFolder(const std::filesystem::path& folder);

/// A new file, for this user alone, on its way into the place of an old one: every reader gets the whole old
/// file or the whole new one. Only one process may do this at a time.
///
/// It is complete for every process from `commit` on, and survives the end of all of them. The disk gets it
/// when the kernel sees fit: after a power cut the old file may be back, or, on some file systems, an empty
/// one in its place, unless `synchronize` was called before.
class FileReplacement {
public:
    /// Where `path` is a symbolic link, the file it leads to is replaced.
    explicit FileReplacement(const std::filesystem::path& path);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement(); ///< Without `commit`, nothing is left of it.

    // Each step answers with its own error, or with that of an earlier one.

    std::error_code write(std::span<const std::string_view> pieces);
    std::error_code synchronize(); ///< Waits for the disk.
    std::error_code commit();

    const struct stat& attributes() const { return attributes_; } ///< As they are after `write`.
    FileDescriptor takeFile() { return std::move(file_); }

private:
    std::error_code fail();

    std::filesystem::path target_, temporary_;
    FileDescriptor file_;
    struct stat attributes_ {};
    std::error_code error_;
    bool isTemporary_ = false;
};

/// Replaces a file and waits for the disk.
std::error_code replaceDurably(const std::filesystem::path& path, std::span<const std::string_view> pieces);

/// Waits until the entries of the folder that holds this file are on the disk: a new file is found there only
/// then.
std::error_code synchronizeFolderOf(const std::filesystem::path& file);

/// Closes the file without waiting: whoever is the last to close one that was replaced has the file system
/// free it, which takes milliseconds when the disk is busy.
void closeInBackground(FileDescriptor file);

std::error_code lastSystemError();

} // namespace quorvane
