#include "platform/linux/files/ReplaceFile.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <thread>

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

std::filesystem::path withoutLinks(const std::filesystem::path& path) {
    std::error_code noLink;
    auto target = std::filesystem::canonical(path, noLink);
    return noLink ? path : target;
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

FileReplacement::FileReplacement(const std::filesystem::path& path)
    : target_(withoutLinks(path))
    , temporary_(target_) {
    // Always the same name: what a killed process leaves behind is removed by the next one.
    temporary_ += ".new";
    ::unlink(temporary_.c_str());
    file_ = FileDescriptor(::open(temporary_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    isTemporary_ = file_.isOpen();
    if (!isTemporary_) fail();
}

FileReplacement::~FileReplacement() {
    if (isTemporary_) ::unlink(temporary_.c_str());
}

std::error_code FileReplacement::write(std::span<const std::string_view> pieces) {
    for (const auto piece : pieces)
        if (!error_ && !writeAll(file_.number(), piece)) fail();
    if (!error_ && ::fstat(file_.number(), &attributes_) != 0) fail();
    return error_;
}

std::error_code FileReplacement::synchronize() {
    if (!error_ && ::fdatasync(file_.number()) != 0) fail();
    return error_;
}

std::error_code FileReplacement::commit() {
    if (error_) return error_;
    if (std::rename(temporary_.c_str(), target_.c_str()) != 0) return fail();
    isTemporary_ = false;
    return {};
}

std::error_code FileReplacement::fail() {
    return error_ = lastSystemError();
}

std::error_code replaceDurably(const std::filesystem::path& path, std::span<const std::string_view> pieces) {
    FileReplacement replacement(path);
    replacement.write(pieces);
    replacement.synchronize();
    if (const auto error = replacement.commit()) return error;
    return synchronizeFolderOf(path);
}

std::error_code synchronizeFolderOf(const std::filesystem::path& file) {
    const auto folder = withoutLinks(file).parent_path();
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.isOpen() || ::fsync(opened.number()) != 0) return lastSystemError();
    return {};
}

void closeInBackground(FileDescriptor file) {
    if (!file.isOpen()) return;
    try {
        std::thread([closing = std::move(file)] {}).detach();
    } catch (const std::system_error&) {
        // There are no threads left: it was closed at once.
    }
}

} // namespace quorvane
