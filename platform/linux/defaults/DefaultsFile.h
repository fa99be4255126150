#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <sys/stat.h>

#include "platform/PropertyList.h"

namespace quorvane {

/// One domain's property-list file, which several programs read and write at the same time.
class DefaultsFile {
public:
    /// Tells whether a file is still the one that was read: it is replaced, not changed, by those who know
    /// how.
    struct Identity {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = -1;           // no file
        std::int64_t modified = 0; // nanoseconds

        bool operator==(const Identity&) const = default;
    };

    /// What is to be changed: nothing removes the key.
    using Changes = std::map<std::string, PropertyList, std::less<>>;

    explicit DefaultsFile(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

    /// Costs one system call.
    Identity identity() const;

    /// What the file holds: an empty dictionary when there is none, none when it is damaged.
    std::optional<PropertyList> read() const;

    enum class Durability {
        visible, ///< Every program sees it; it is on the disk when the system finds the time.
        onDisk   ///< It would survive a power failure when the call returns.
    };

    /// Writes changes into the file: what others wrote there meanwhile is kept, but for the changed keys. The
    /// file is replaced as a whole, so that nobody ever reads half of one. A damaged file is set aside under
    /// another name first, and `lastGood` stands in for its contents. Returns the new contents; none when
    /// they could not be written, for instance because another program holds the lock too long.
    std::optional<PropertyList> merge(const Changes& changes, const PropertyList& lastGood,
                                      Durability durability);

    /// Waits until the file as it stands is on the disk.
    bool sync() const;

private:
    PropertyList contentsToChange(const PropertyList& lastGood) const;
    void setAside() const;
    bool replace(const std::string& contents, Durability durability) const;

    std::filesystem::path path_;
};

} // namespace quorvane
