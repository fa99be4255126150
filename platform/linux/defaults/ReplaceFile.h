#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/linux/defaults/FileDescriptor.h"

namespace quorvane {

/// How much a write has to survive. A file that is only `visible` is complete for every process from now on,
/// and survives the end of all of them. The disk gets it when the kernel sees fit: after a power cut, the old
/// file may be back. That costs microseconds; `durable` waits for the disk, which costs milliseconds.
enum class Durability { visible, durable };

/// Creates the folder, and those it lies in, for this user alone. An error unless it is there afterwards.
std::error_code makePrivateFolder(const std::filesystem::path& folder);

/// Puts a new file of these bytes, for this user alone, in the place of `path`: every reader gets the whole
/// old file or the whole new one. Where `path` is a symbolic link, the file it leads to is replaced. Answers
/// with the new file, open, in `replacement`. Only one process may do this at a time.
std::error_code replaceFile(const std::filesystem::path& path, std::string_view bytes, Durability durability,
                            FileDescriptor& replacement);

/// Waits until the folder's entries are on the disk: a new file is found there only then.
std::error_code synchronizeFolder(const std::filesystem::path& folder);

std::error_code lastSystemError();

} // namespace quorvane
