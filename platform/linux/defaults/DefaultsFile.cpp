#include "platform/linux/defaults/DefaultsFile.h"

#include <fcntl.h>
#include <plist/plist.h>

#include <cerrno>
#include <thread>

#include "platform/linux/Log.h"
#include "platform/linux/defaults/FileLock.h"
#include "platform/linux/defaults/PropertyListBytes.h"

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds lockPatience{100};
constexpr std::chrono::milliseconds timeToFinishSaving{50};

bool meansNoFile(int error) {
    return error == ENOENT || error == ENOTDIR;
}

/// False when reading fails. Stops behind the size that is too much anyway.
bool readAll(int file, std::string& bytes) {
    while (bytes.size() <= maximumPropertyListSize) {
        char chunk[65536];
        const auto count = ::read(file, chunk, sizeof chunk);
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.append(chunk, static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

DefaultsFile::DefaultsFile(std::filesystem::path path) : path_(std::move(path)) {
    look();
    if (state_ != State::damaged) return;
    const FileLock lock(beside(".lock"), lockPatience);
    const auto error = lock.error() ? lock.error() : makeRoom();
    if (error) logLine(path_.string() + " is damaged and cannot be set aside: " + error.message());
}

void DefaultsFile::refresh() {
    look();
    if (state_ == State::damaged)
        logLine(path_.string() + " is damaged: the settings read before stay in use");
}

std::error_code DefaultsFile::apply(const PendingWrites& writes, Durability durability,
                                    std::chrono::milliseconds patience) {
    if (const auto error = makePrivateFolder(path_.parent_path())) return error;
    const FileLock lock(beside(".lock"), patience);
    if (lock.error()) return lock.error();
    look();
    if (state_ == State::damaged)
        if (const auto error = makeRoom()) return error;
    if (state_ == State::unreadable) return readError_;
    return write(writes, durability);
}

std::error_code DefaultsFile::synchronize() {
    if (isDurable_ || !file_.isOpen()) return {};
    if (::fdatasync(file_.number()) != 0) return lastSystemError();
    if (const auto error = synchronizeFolder(path_.parent_path())) return error;
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
    // Not blocking, for whoever puts a pipe there.
    FileDescriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file.isOpen()) return meansNoFile(errno) ? setGone() : setUnreadable(lastSystemError());
    struct stat attributes {};
    if (::fstat(file.number(), &attributes) != 0) return setUnreadable(lastSystemError());
    if (!S_ISREG(attributes.st_mode)) return setUnreadable(std::make_error_code(std::errc::invalid_argument));
    std::string bytes;
    if (!readAll(file.number(), bytes)) return setUnreadable(lastSystemError());

    // The attributes from before the reading: a change during it makes the next look read again.
    version_ = versionOf(attributes);
    file_ = std::move(file);
    isDurable_ = false;
    parse(bytes);
}

void DefaultsFile::setGone() {
    version_ = Version{};
    file_ = FileDescriptor();
    state_ = State::good;
    node_.reset();
    contents_ = PropertyList::Dictionary{};
}

void DefaultsFile::setUnreadable(std::error_code error) {
    version_.reset();
    state_ = State::unreadable;
    readError_ = error;
    logLine(path_.string() + " cannot be read: " + error.message());
}

void DefaultsFile::parse(std::string_view bytes) {
    auto node = readPropertyList(bytes);
    const bool isDictionary = node && plist_get_node_type(node.get()) == PLIST_DICT;
    state_ = isDictionary ? State::good : State::damaged;
    if (!isDictionary) return;
    node_ = std::move(node);
    contents_ = propertyListOf(node_.get());
}

/// Makes sure that a damaged file does not stand in the way of a new one.
std::error_code DefaultsFile::makeRoom() {
    std::this_thread::sleep_for(timeToFinishSaving);
    look();
    return state_ == State::damaged ? setAside() : std::error_code();
}

std::error_code DefaultsFile::setAside() {
    std::error_code error;
    auto place = beside(".damaged");
    for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(place, error)); ++number)
        place = beside(".damaged-" + std::to_string(number));
    std::filesystem::rename(path_, place, error);
    if (error) return error;
    logLine(path_.string() + " is damaged: set aside as " + place.filename().string());
    version_ = Version{};
    file_ = FileDescriptor();
    state_ = State::good;
    return {};
}

std::error_code DefaultsFile::write(const PendingWrites& writes, Durability durability) {
    if (!node_) node_ = nodeOf(contents_);
    auto* entries = contents_.dictionary();
    auto changed = entries ? *entries : PropertyList::Dictionary{};
    for (const auto& [key, value] : writes) {
        if (value.isNothing()) {
            plist_dict_remove_item(node_.get(), key.c_str());
            changed.erase(key);
        } else {
            plist_dict_set_item(node_.get(), key.c_str(), nodeOf(value).release());
            changed.insert_or_assign(key, value);
        }
    }
    FileDescriptor replacement;
    const auto error = replaceFile(path_, xmlOf(node_), durability, replacement);
    struct stat attributes {};
    if (!replacement.isOpen() || ::fstat(replacement.number(), &attributes) != 0) {
        // The node holds what the file does not: both are read again at the next look.
        node_.reset();
        version_.reset();
        return error;
    }
    contents_ = std::move(changed);
    version_ = versionOf(attributes);
    file_ = std::move(replacement);
    isDurable_ = durability == Durability::durable && !error;
    return error;
}

} // namespace quorvane
