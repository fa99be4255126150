#include "platform/linux/defaults/DefaultsFile.h"

#include <cerrno>
#include <utility>

#include <unistd.h>

#include "platform/linux/Log.h"
#include "platform/linux/defaults/PropertyListBytes.h"
#include "platform/linux/files/FileLock.h"
#include "platform/linux/files/ReadFile.h"
#include "platform/linux/files/ReplaceFile.h"

namespace quorvane {
namespace {

bool meansNoFile(int error) {
    return error == ENOENT || error == ENOTDIR;
}

std::filesystem::path lockOf(const std::filesystem::path& file) {
    return beside(file, ".lock");
}

} // namespace

DefaultsFile::DefaultsFile(const std::filesystem::path& path, SettingsHealth& health)
    : path_(path)
    , damage_(path, health) {
    look();
}

bool DefaultsFile::mustBeWrittenBack() const {
    return !readError_ && damage_.isThere() && !contents().dictionary()->empty();
}

bool DefaultsFile::isTooLargeWith(const SettingsEntries& changes) const {
    return text_.with(changes).size() > maximumPropertyListSize;
}

std::error_code DefaultsFile::write(const SettingsEntries& changes, std::chrono::milliseconds patience) {
    if (const auto error = makePrivateFolder(path_.parent_path())) return error;
    const FileLock lock(lockOf(path_), patience);
    if (lock.error()) return lock.error();
    look();
    if (readError_) return readError_;
    if (damage_.isNew()) return std::make_error_code(std::errc::device_or_resource_busy);
    return replace(text_.with(changes));
}

std::error_code DefaultsFile::synchronize(std::chrono::milliseconds patience) {
    if (isDurable_ || !file_.isOpen()) return {};
    const FileLock lock(lockOf(path_), patience);
    if (lock.error()) return lock.error();
    look();
    if (readError_ || damage_.isThere() || !file_.isOpen()) return {};
    if (::fdatasync(file_.number()) != 0) return lastSystemError();
    if (const auto error = replaceDurably(savedVersionOf(path_), text_.pieces())) return error;
    if (const auto error = synchronizeFolderOf(path_)) return error;
    isDurable_ = true;
    return {};
}

DefaultsFile::Version DefaultsFile::versionOf(const struct stat& attributes) {
    constexpr std::int64_t nanosecondsOfSecond = 1'000'000'000;
    return {attributes.st_dev, attributes.st_ino, attributes.st_size,
            attributes.st_mtim.tv_sec * nanosecondsOfSecond + attributes.st_mtim.tv_nsec};
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
    auto read = readFile(path_, maximumPropertyListSize);
    if (read.error) return meansNoFile(read.error.value()) ? setGone() : setUnreadable(read.error);
    setVersion(read.attributes, std::move(read.file));
    if (auto text = SettingsText::read(read.bytes, text_))
        setGood(*std::move(text));
    else
        text_ = damage_.found(text_);
}

void DefaultsFile::setGone() {
    version_ = Version{};
    readError_.clear();
    closeInBackground(std::exchange(file_, FileDescriptor()));
    setGood(SettingsText());
}

void DefaultsFile::setGood(SettingsText text) {
    damage_.isOver();
    text_ = std::move(text);
}

void DefaultsFile::setUnreadable(std::error_code error) {
    version_.reset();
    readError_ = error;
    logLine(path_.string() + " cannot be read: " + error.message());
}

void DefaultsFile::setVersion(const struct stat& attributes, FileDescriptor file) {
    version_ = versionOf(attributes);
    readError_.clear();
    closeInBackground(std::exchange(file_, std::move(file)));
    isDurable_ = false;
}

std::error_code DefaultsFile::replace(SettingsText text) {
    if (text.size() > maximumPropertyListSize) return std::make_error_code(std::errc::file_too_large);
    FileReplacement replacement(path_);
    if (const auto error = replacement.write(text.pieces())) return error;
    if (damage_.isThere())
        if (const auto error = damage_.setAside()) return error;
    if (const auto error = replacement.commit()) return error;
    setVersion(replacement.attributes(), replacement.takeFile());
    setGood(std::move(text));
    return {};
}

} // namespace quorvane
