#include "platform/linux/files/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <thread>

#include "platform/linux/files/ReplaceFile.h"

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds pauseBetweenTries{1};

} // namespace

FileLock::FileLock(const std::filesystem::path& lockFile, std::chrono::milliseconds patience)
    // For writing: where the lock is another machine's, as on NFS, only a writer gets an exclusive one.
    : file_(::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)) {
    if (!file_.isOpen()) {
        error_ = lastSystemError();
        return;
    }
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (::flock(file_.number(), LOCK_EX | LOCK_NB) != 0) {
        error_ = lastSystemError();
        const bool isHeldElsewhere = errno == EWOULDBLOCK || errno == EINTR;
        if (!isHeldElsewhere || std::chrono::steady_clock::now() >= deadline) return;
        std::this_thread::sleep_for(pauseBetweenTries);
    }
    error_.clear();
}

} // namespace quorvane
