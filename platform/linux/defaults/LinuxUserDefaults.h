#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QTimer>

#include "platform/UserDefaults.h"
#include "platform/linux/defaults/DefaultsDomain.h"
#include "platform/linux/defaults/FolderWatch.h"

namespace quorvane {

/// The user's defaults as property-list files, one for each domain, all in one folder.
///
/// Writes are kept together for a moment and then written at once, so that a file with many rules is not
/// written in the middle of a burst of switches; `synchronize` and `flushPendingWrites` do not wait.
class LinuxUserDefaults : public UserDefaultsStores {
public:
    LinuxUserDefaults(std::filesystem::path folder, std::string_view standardDomain);
    ~LinuxUserDefaults() override;
    LinuxUserDefaults(const LinuxUserDefaults&) = delete;
    LinuxUserDefaults& operator=(const LinuxUserDefaults&) = delete;

    /// Where the environment says that the user's settings are.
    static std::filesystem::path configFolder();

    StandardUserDefaults& standardUserDefaults() override;
    std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view suiteName) override;

    /// Makes every write visible to other programs now.
    void flushPendingWrites();

private:
    class Standard;
    class Suite;

    DefaultsDomain& domain(std::string_view name);
    void flushSoon();

    std::filesystem::path folder_;
    std::map<std::string, DefaultsDomain, std::less<>> domains_;
    std::unique_ptr<Standard> standard_;
    QTimer flush_;
    FolderWatch watch_;
};

} // namespace quorvane
