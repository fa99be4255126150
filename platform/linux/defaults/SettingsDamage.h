#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/linux/defaults/SettingsHealth.h"
#include "platform/linux/defaults/SettingsText.h"

namespace quorvane {

/// What is done about a settings file that cannot be understood. What was read before stays in use; at the
/// first reading, the saved version counts, which is the last one that was surely on the disk. Nothing is
/// changed on the disk but by a write, which sets the damaged file aside first, and leaves an editor the time
/// to finish before that.
class SettingsDamage {
public:
    /// `health` is told of files set aside, and must outlive this.
    SettingsDamage(std::filesystem::path file, SettingsHealth& health);

    bool isThere() const { return seen_.has_value(); }

    /// An editor may be about to finish the file.
    bool isNew() const;

    /// A version of the file was read that is damaged: answers what counts in its place.
    SettingsText found(const SettingsText& before);

    /// A version was read that is good, or there is no file.
    void isOver();

    /// Gives the damaged file a second name, so that at no time there is no file, which would mean that there
    /// are no settings.
    std::error_code setAside();

private:
    std::filesystem::path file_;
    SettingsHealth& health_;
    bool wasRead_ = false;                                      ///< Good, damaged or missing: at least once.
    std::optional<std::chrono::steady_clock::time_point> seen_; ///< Of the latest damaged version.
};

/// The name of a file that belongs to another one: `file.plist.saved`.
std::filesystem::path beside(const std::filesystem::path& file, std::string_view suffix);

/// The last version of a settings file that was surely on the disk.
inline std::filesystem::path savedVersionOf(const std::filesystem::path& file) {
    return beside(file, ".saved");
}

} // namespace quorvane
