#pragma once

#include <sys/stat.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <system_error>

#include "platform/linux/defaults/FileDescriptor.h"
#include "platform/linux/defaults/PropertyListNode.h"
#include "platform/linux/defaults/ReplaceFile.h"

namespace quorvane {

/// Writes that are not in a file yet: key to value, nothing for a removal.
using PendingWrites = std::map<std::string, PropertyList, std::less<>>;

/// One property-list file that several processes and the user's editor read and write.
///
/// A file that cannot be understood is never written over: it is set aside, and what was read before stays.
/// An editor may be half through saving, though, so only two occasions set a file aside: the first reading,
/// which nothing good precedes, and a write. Both give the editor time to finish first.
class DefaultsFile {
public:
    explicit DefaultsFile(std::filesystem::path path);

    /// A dictionary: the file's contents when they were last read, or the last good ones.
    const PropertyList& contents() const { return contents_; }

    const std::filesystem::path& path() const { return path_; }

    /// Reads the file again if somebody changed it; costs one look at the file's attributes otherwise.
    void refresh();

    /// Puts the writes on top of what the file holds by now, under a lock against other processes, and
    /// replaces the file as a whole. Waits at most `patience` for the lock. After an error the good file is
    /// as it was.
    std::error_code apply(const PendingWrites& writes, Durability durability,
                          std::chrono::milliseconds patience);

    /// Makes what the file holds durable, whoever wrote it.
    std::error_code synchronize();

private:
    struct Version {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        std::int64_t modified = 0; // nanoseconds
        bool operator==(const Version&) const = default;
    };
    enum class State { good, damaged, unreadable };

    static Version versionOf(const struct stat& attributes);
    std::filesystem::path beside(std::string_view suffix) const;
    void look();
    void load();
    void setGone();
    void setUnreadable(std::error_code error);
    void parse(std::string_view bytes);
    std::error_code makeRoom();
    std::error_code setAside();
    std::error_code write(const PendingWrites& writes, Durability durability);

    std::filesystem::path path_;
    PropertyList contents_ = PropertyList::Dictionary{};
    PropertyListNode node_; // the same contents; null: to be made of them
    State state_ = State::good;
    std::error_code readError_;
    bool isDurable_ = true;

    // The version looked at last; all zero: there was no file. Its file stays open, so that no newer version
    // can get its inode number and be taken for it.
    std::optional<Version> version_;
    FileDescriptor file_;
};

} // namespace quorvane
