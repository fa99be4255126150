#include "platform/linux/defaults/ReplaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace quorvane {
namespace {

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

std::error_code lastSystemError() {
    return {errno, std::generic_category()};
}

std::error_code makePrivateFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (std::filesystem::is_directory(folder, error)) return {};
    if (folder.has_parent_path() && folder.parent_path() != folder)
        if (error = makePrivateFolder(folder.parent_path()); error) return error;
    if (::mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST) return {};
    return lastSystemError();
}

std::error_code replaceFile(const std::filesystem::path& path, std::string_view bytes, Durability durability,
                            FileDescriptor& replacement) {
    std::error_code noLink;
    auto target = std::filesystem::canonical(path, noLink);
    if (noLink) target = path;
    // Always the same name: what a killed process leaves behind is removed by the next one.
    auto temporary = target;
    temporary += ".new";
    ::unlink(temporary.c_str());
    FileDescriptor file(::open(temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.isOpen()) return lastSystemError();
    const bool isWritten = writeAll(file.number(), bytes) &&
                           (durability == Durability::visible || ::fdatasync(file.number()) == 0) &&
                           std::rename(temporary.c_str(), target.c_str()) == 0;
    if (!isWritten) {
        const auto error = lastSystemError();
        ::unlink(temporary.c_str());
        return error;
    }
    replacement = std::move(file);
    return durability == Durability::visible ? std::error_code() : synchronizeFolder(target.parent_path());
}

std::error_code synchronizeFolder(const std::filesystem::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.isOpen() || ::fsync(opened.number()) != 0) return lastSystemError();
    return {};
}

} // namespace quorvane
