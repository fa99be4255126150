#pragma once

#include <chrono>
#include <filesystem>
#include <system_error>

#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {

/// Keeps other processes that ask for the same lock file out for as long as it lives. The lock ends with the
/// process that holds it, however that process ends; the empty lock file stays, since removing it would let
/// two processes lock two different files.
class FileLock {
public:
    /// Waits at most that long for another holder, who may be stopped: check `error` before going on.
    FileLock(const std::filesystem::path& lockFile, std::chrono::milliseconds patience);

    /// None when the lock is held; `resource_unavailable_try_again` when somebody else holds it.
    std::error_code error() const { return error_; }

private:
    FileDescriptor file_;
    std::error_code error_;
};

} // namespace quorvane
