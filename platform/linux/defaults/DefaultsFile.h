#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

#include <sys/stat.h>

#include "platform/linux/defaults/SettingsDamage.h"
#include "platform/linux/defaults/SettingsText.h"
#include "platform/linux/files/FileDescriptor.h"

namespace quorvane {

/// One property-list file that several processes and the user's editor read and write, and beside it, as
/// `.saved`, the last version that was surely on the disk.
///
/// Reading changes nothing on the disk. What counts while the file cannot be understood, SettingsDamage says.
class DefaultsFile {
public:
    /// `health` is told of files set aside, and must outlive this.
    DefaultsFile(const std::filesystem::path& path, SettingsHealth& health);

    /// A dictionary: the file's contents when they were last read, or the last good ones.
    const PropertyList& contents() const { return text_.values(); }

    const std::filesystem::path& path() const { return path_; }

    /// Reads the file again if somebody changed it; costs one look at the file's attributes otherwise.
    void refresh() { look(); }

    /// Whether the contents are better than those of the file, which is damaged.
    bool mustBeWrittenBack() const;

    /// Whether the file would be larger with the changes than any is read.
    bool isTooLargeWith(const SettingsEntries& changes) const;

    /// Puts the changes on top of what the file holds by now, under a lock against other processes, and
    /// replaces the file as a whole. Waits at most `patience` for the lock. After an error the file is as it
    /// was: `resource_unavailable_try_again` when somebody holds the lock, `device_or_resource_busy` while an
    /// editor may be about to finish a damaged file.
    std::error_code write(const SettingsEntries& changes, std::chrono::milliseconds patience);

    /// Makes what the file holds durable, whoever wrote it, and keeps it as the saved version.
    std::error_code synchronize(std::chrono::milliseconds patience);

private:
    struct Version {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        std::int64_t modified = 0; // nanoseconds
        bool operator==(const Version&) const = default;
    };

    static Version versionOf(const struct stat& attributes);
    void look();
    void load();
    void setGone();
    void setGood(SettingsText text);
    void setUnreadable(std::error_code error);
    void setVersion(const struct stat& attributes, FileDescriptor file);
    std::error_code replace(SettingsText text);

    std::filesystem::path path_;
    SettingsText text_;
    SettingsDamage damage_;
    std::error_code readError_; ///< None when the file could be read, or is missing.
    bool isDurable_ = true;

    // The version looked at last; all zero: there was no file. Its file stays open, so that no newer version
    // can get its inode number and be taken for it.
    std::optional<Version> version_;
    FileDescriptor file_;
};

} // namespace quorvane
