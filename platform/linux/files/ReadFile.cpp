#include "platform/linux/files/ReadFile.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>

#include "platform/linux/files/ReplaceFile.h"

namespace quorvane {
namespace {

/// False when reading fails.
bool readAll(int file, std::size_t expectedSize, std::size_t mostBytes, std::string& bytes) {
    bytes.resize(std::min(expectedSize, mostBytes) + 1); // one more: the end is seen at once
    std::size_t size = 0;
    while (size <= mostBytes) {
        if (size == bytes.size()) bytes.resize(2 * size);
        const auto count = ::read(file, bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        if (count == 0) break;
        size += static_cast<std::size_t>(count);
    }
    bytes.resize(size);
    return true;
}

} // namespace

ReadFile readFile(const std::filesystem::path& path, std::size_t mostBytes) {
    ReadFile result;
    result.file = FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    const bool isOpen = result.file.isOpen() && ::fstat(result.file.number(), &result.attributes) == 0;
    if (isOpen && !S_ISREG(result.attributes.st_mode)) {
        result.error = std::make_error_code(std::errc::invalid_argument);
        return result;
    }
    const auto size = static_cast<std::size_t>(result.attributes.st_size);
    if (!isOpen || !readAll(result.file.number(), size, mostBytes, result.bytes))
        result.error = lastSystemError();
    return result;
}

} // namespace quorvane
