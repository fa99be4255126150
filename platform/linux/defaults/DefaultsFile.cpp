#include "platform/linux/defaults/DefaultsFile.h"

#include <fcntl.h>

#include <cerrno>

#include "platform/linux/Log.h"
#include "platform/linux/defaults/FileLock.h"
#include "platform/linux/defaults/PropertyListBytes.h"
#include "platform/linux/defaults/ReplaceFile.h"

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds timeToFinishSaving{500};

bool meansNoFile(int error) {
    return error == ENOENT || error == ENOTDIR;
}

/// False when reading fails. Stops behind the size that is too much anyway.
bool readAll(int file, std::size_t expectedSize, std::string& bytes) {
    bytes.resize(std::min(expectedSize, maximumPropertyListSize) + 1); // one more: the end is seen at once
    std::size_t size = 0;
    while (size <= maximumPropertyListSize) {
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

/// A file as it was opened; an error in its place when it cannot be read, or is no file.
struct ReadFile {
    FileDescriptor file;
    struct stat attributes {};
    std::string bytes;
    std::error_code error;
};

ReadFile readFile(const std::filesystem::path& path) {
    ReadFile result;
    // Not blocking, for whoever puts a pipe there.
    result.file = FileDescriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    // The attributes from before the reading: a change during it makes the next look read again.
    const bool isOpen = result.file.isOpen() && ::fstat(result.file.number(), &result.attributes) == 0;
    if (isOpen && !S_ISREG(result.attributes.st_mode)) {
        result.error = std::make_error_code(std::errc::invalid_argument);
        return result;
    }
    const auto size = static_cast<std::size_t>(result.attributes.st_size);
    if (!isOpen || !readAll(result.file.number(), size, result.bytes)) result.error = lastSystemError();
    return result;
}

} // namespace

DefaultsFile::DefaultsFile(std::filesystem::path path, SettingsHealth& health)
    : path_(std::move(path))
    , health_(health) {
    look();
}

bool DefaultsFile::mustBeWrittenBack() const {
    return state_ == State::damaged && !contents().dictionary()->empty();
}

bool DefaultsFile::isTooLargeWith(const SettingsEntries& changes) const {
    return text_.with(changes).size() > maximumPropertyListSize;
}

std::error_code DefaultsFile::write(const SettingsEntries& changes, std::chrono::milliseconds patience) {
    if (const auto error = makePrivateFolder(path_.parent_path())) return error;
    const FileLock lock(beside(".lock"), patience);
    if (lock.error()) return lock.error();
    look();
    if (state_ == State::unreadable) return readError_;
    const bool isNewDamage = std::chrono::steady_clock::now() < damageSeen_ + timeToFinishSaving;
    if (state_ == State::damaged && isNewDamage)
        return std::make_error_code(std::errc::device_or_resource_busy);
    return replace(text_.with(changes));
}

std::error_code DefaultsFile::synchronize(std::chrono::milliseconds patience) {
    if (isDurable_ || !file_.isOpen()) return {};
    const FileLock lock(beside(".lock"), patience);
    if (lock.error()) return lock.error();
    look();
    if (state_ != State::good || !file_.isOpen()) return {};
    if (::fdatasync(file_.number()) != 0) return lastSystemError();
    if (const auto error = replaceDurably(beside(".saved"), text_.pieces())) return error;
    if (const auto error = synchronizeFolderOf(path_)) return error;
    isDurable_ = true;
    return {};
}

DefaultsFile::Version DefaultsFile::versionOf(const struct stat& attributes) {
    constexpr std::int64_t nanosecondsOfSecond = 1'000'000'000;
    return {attributes.st_dev, attributes.st_ino, attributes.st_size,
            attributes.st_mtim.tv_sec * nanosecondsOfSecond + attributes.st_mtim.tv_nsec};
}

std::filesystem::path DefaultsFile::beside(std::string_view suffix) const {
    auto path = path_;
    path += suffix;
    return path;
}

void DefaultsFile::look() {
    struct stat attributes {};
    if (::stat(path_.c_str(), &attributes) == 0) {
        if (version_ != versionOf(attributes)) load();
    } else if (meansNoFile(errno)) {
        if (version_ != Version{}) setGone();
    } else {
        setUnreadable(lastSystemError());
    }
}

void DefaultsFile::load() {
    auto read = readFile(path_);
    if (read.error) return meansNoFile(read.error.value()) ? setGone() : setUnreadable(read.error);
    setVersion(read.attributes, std::move(read.file));
    auto text = SettingsText::read(read.bytes, text_);
    if (!text) return setDamaged();
    setGood(*std::move(text));
}

void DefaultsFile::setGone() {
    version_ = Version{};
    closeInBackground(std::exchange(file_, FileDescriptor()));
    setGood(SettingsText());
}

void DefaultsFile::setGood(SettingsText text) {
    state_ = State::good;
    wasRead_ = true;
    text_ = std::move(text);
}

void DefaultsFile::setUnreadable(std::error_code error) {
    version_.reset();
    state_ = State::unreadable;
    readError_ = error;
    logLine(path_.string() + " cannot be read: " + error.message());
}

void DefaultsFile::setDamaged() {
    std::string_view inUse = "the settings read before stay in use";
    if (!wasRead_) {
        const auto saved = SettingsText::read(readFile(beside(".saved")).bytes, text_);
        text_ = saved.value_or(SettingsText());
        inUse = saved ? "the ones last saved for sure are used instead" : "there are no older ones";
    }
    if (state_ != State::damaged) logEvent(path_.string() + " is damaged: " + std::string(inUse));
    state_ = State::damaged;
    wasRead_ = true;
    damageSeen_ = std::chrono::steady_clock::now();
}

void DefaultsFile::setVersion(const struct stat& attributes, FileDescriptor file) {
    version_ = versionOf(attributes);
    closeInBackground(std::exchange(file_, std::move(file)));
    isDurable_ = false;
}

std::error_code DefaultsFile::replace(SettingsText text) {
    if (text.size() > maximumPropertyListSize) return std::make_error_code(std::errc::file_too_large);
    FileReplacement replacement(path_);
    if (const auto error = replacement.write(text.pieces())) return error;
    if (state_ == State::damaged)
        if (const auto error = setAside()) return error;
    if (const auto error = replacement.commit()) return error;
    setVersion(replacement.attributes(), replacement.takeFile());
    setGood(std::move(text));
    return {};
}

/// As a second name, so that at no time there is no file, which would mean that there are no settings.
std::error_code DefaultsFile::setAside() {
    std::error_code error;
    auto place = beside(".damaged");
    for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(place, error)); ++number)
        place = beside(".damaged-" + std::to_string(number));
    const bool isLinked = ::linkat(AT_FDCWD, path_.c_str(), AT_FDCWD, place.c_str(), AT_SYMLINK_FOLLOW) == 0;
    const bool isCopied = !isLinked && std::filesystem::copy_file(path_, place, error);
    if (!isLinked && !isCopied) return error;
    logEvent(path_.string() + " is damaged: set aside as " + place.filename().string());
    health_.wasSetAside(place.string());
    return {};
}

} // namespace quorvane
