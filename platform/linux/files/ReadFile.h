#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>

#include <sys/stat.h>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {

/// A file as it was opened; an error in its place when it cannot be read, or is no file.
struct ReadFile {
    FileDescriptor file;
    struct stat attributes {}; ///< From before the reading: a change during it gives others.
    std::string bytes;
    std::error_code error;
};

/// Reads a whole file, but stops a little behind `mostBytes`, which is too much anyway. Waits for nobody who
/// may have put a pipe there.
ReadFile readFile(const std::filesystem::path& path, std::size_t mostBytes);

} // namespace quorvane
