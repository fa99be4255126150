#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/DefaultsSearchList.h"
#include "platform/linux/defaults/FileDomain.h"
#include "platform/linux/files/FolderWatch.h"

namespace quorvane {

/// The user's defaults: one property-list file for each domain in one folder, shared with the other programs
/// of the maker. The stores it hands out must not outlive it.
class LinuxUserDefaults : public UserDefaultsStores {
public:
    /// Creates the folder. With an empty one, nothing outlives the program.
    LinuxUserDefaults(const std::filesystem::path& folder, std::string_view standardDomain);
    ~LinuxUserDefaults() override;

    /// Where this user's settings belong; empty when the environment does not tell.
    static std::filesystem::path configFolder();

    /// The name of a domain's file in that folder.
    static std::string fileNameOf(std::string_view domain);

    StandardUserDefaults& standardUserDefaults() override;
    std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view suiteName) override;

    /// Makes every write visible to other processes now instead of at the end of this turn of the event loop.
    void flushPendingWrites();

    /// What cannot be saved now, and what was damaged.
    SettingsHealth& health() { return health_; }

private:
    FileDomain& domain(std::string_view name);
    void fileChanged(std::string_view fileName);

    std::filesystem::path folder_;
    SettingsHealth health_;
    std::map<std::string, std::unique_ptr<FileDomain>, std::less<>> domains_;
    std::optional<DefaultsSearchList> standard_;
    std::unique_ptr<FolderWatch> watch_;
};

} // namespace quorvane
