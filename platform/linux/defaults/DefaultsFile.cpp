#include "platform/linux/defaults/DefaultsFile.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/file.h>
#include <thread>

#include "platform/linux/Log.h"
#include "platform/linux/defaults/FileDescriptor.h"
#include "platform/linux/defaults/PropertyListFormat.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds longestWaitForLock(100); // the event loop stands still meanwhile
constexpr std::chrono::milliseconds pauseBetweenTries(1);

/// Holds the lock that everybody takes who changes the file. A file of its own, since the other one is
/// replaced under the lock.
FileDescriptor lock(const fs::path& file) {
    // Opened for reading: closing a file that was open for writing would wake everybody who watches the
    // folder.
    FileDescriptor descriptor(open((file.string() + ".lock").c_str(), O_RDONLY | O_CREAT | O_CLOEXEC, 0600));
    const auto deadline = std::chrono::steady_clock::now() + longestWaitForLock;
    while (descriptor.isOpen() && flock(descriptor.get(), LOCK_EX | LOCK_NB) != 0) {
        if (std::chrono::steady_clock::now() >= deadline) {
            logLine("another program keeps " + file.string() + " locked; it is written later");
            return FileDescriptor(-1);
        }
        std::this_thread::sleep_for(pauseBetweenTries);
    }
    return descriptor;
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool syncPath(const fs::path& path) {
    const FileDescriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return descriptor.isOpen() && fsync(descriptor.get()) == 0;
}

} // namespace

DefaultsFile::Identity DefaultsFile::identity() const {
    struct stat status {};
    if (stat(path_.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino, status.st_size,
            std::int64_t{status.st_mtim.tv_sec} * 1000000000 + status.st_mtim.tv_nsec};
}

std::optional<PropertyList> DefaultsFile::read() const {
    std::ifstream file(path_, std::ios::binary);
    if (!file) {
        std::error_code error;
        const bool exists = fs::exists(path_, error);
        if (exists) logLine(path_.string() + " cannot be read: " + std::strerror(errno));
        return exists ? std::nullopt : std::optional<PropertyList>(PropertyList::Dictionary{});
    }
    std::ostringstream contents;
    contents << file.rdbuf();
    auto values = parsePropertyList(contents.str());
    if (values && values->dictionary()) return values;
    return std::nullopt;
}

std::optional<PropertyList> DefaultsFile::merge(const Changes& changes, const PropertyList& lastGood,
                                                Durability durability) {
    std::error_code error;
    if (fs::create_directories(path_.parent_path(), error))
        fs::permissions(path_.parent_path(), fs::perms::owner_all, error);
    const auto held = lock(path_);
    if (!held.isOpen()) return std::nullopt;

    auto contents = contentsToChange(lastGood);
    for (const auto& [key, value] : changes)
        contents = contents.with(key, value);
    if (replace(toXml(contents), durability)) return contents;
    logLine(path_.string() + " cannot be written: " + std::strerror(errno));
    return std::nullopt;
}

PropertyList DefaultsFile::contentsToChange(const PropertyList& lastGood) const {
    if (auto contents = read()) return *contents;
    setAside();
    return lastGood;
}

void DefaultsFile::setAside() const {
    auto kept = path_.string() + ".damaged";
    std::error_code error;
    for (int number = 2; fs::exists(kept, error); ++number)
        kept = path_.string() + ".damaged-" + std::to_string(number);
    fs::rename(path_, kept, error);
    if (!error) logLine(path_.string() + " was damaged; it is kept as " + kept);
}

bool DefaultsFile::replace(const std::string& contents, Durability durability) const {
    auto temporary = path_.string() + ".XXXXXX";
    {
        const FileDescriptor descriptor(mkostemp(temporary.data(), O_CLOEXEC)); // 0600
        if (!descriptor.isOpen()) return false;
        const bool isWhole = writeAll(descriptor.get(), contents) &&
                             (durability == Durability::visible || fdatasync(descriptor.get()) == 0);
        if (!isWhole || std::rename(temporary.c_str(), path_.c_str()) != 0) {
            const auto reason = errno;
            unlink(temporary.c_str());
            errno = reason;
            return false;
        }
    }
    return durability == Durability::visible || syncPath(path_.parent_path());
}

bool DefaultsFile::sync() const {
    return syncPath(path_) && syncPath(path_.parent_path());
}

} // namespace quorvane
