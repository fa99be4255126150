#include "platform/linux/defaults/LinuxUserDefaults.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/linux/files/ReplaceFile.h"

namespace quorvane {
namespace {

std::filesystem::path absolutePath(const char* variable) {
    const char* value = std::getenv(variable);
    const std::filesystem::path path(value ? value : "");
    return path.is_absolute() ? path : std::filesystem::path();
}

} // namespace

LinuxUserDefaults::LinuxUserDefaults(const std::filesystem::path& folder, std::string_view standardDomain)
    : folder_(folder) {
    makePrivateFolder(folder_); // or the first write tells why not
    // Before the first reading, so that no change gets lost between the two.
    if (!folder_.empty())
        watch_ = std::make_unique<FolderWatch>(folder_, [this](std::string_view name) { fileChanged(name); });
    standard_.emplace(domain(standardDomain),
                      [this](std::string_view name) -> DefaultsDomain& { return domain(name); });
}

LinuxUserDefaults::~LinuxUserDefaults() = default;

std::filesystem::path LinuxUserDefaults::configFolder() {
    constexpr auto ownFolder = "quorvane";
    if (const auto config = absolutePath("XDG_CONFIG_HOME"); !config.empty()) return config / ownFolder;
    const auto home = absolutePath("HOME");
    return home.empty() ? home : home / ".config" / ownFolder;
}

std::string LinuxUserDefaults::fileNameOf(std::string_view domain) {
    std::string name(domain);
    std::ranges::replace(name, '/', ':'); // no domain leads out of the folder
    return name.append(".plist");
}

StandardUserDefaults& LinuxUserDefaults::standardUserDefaults() {
    return *standard_;
}

std::unique_ptr<UserDefaults> LinuxUserDefaults::initWithSuiteName(std::string_view suiteName) {
    return std::make_unique<DomainDefaults>(domain(suiteName));
}

void LinuxUserDefaults::flushPendingWrites() {
    for (const auto& [name, domain] : domains_)
        domain->flush();
}

FileDomain& LinuxUserDefaults::domain(std::string_view name) {
    const auto known = domains_.find(name);
    if (known != domains_.end()) return *known->second;
    auto opened =
        std::make_unique<FileDomain>(folder_.empty() ? folder_ : folder_ / fileNameOf(name), health_);
    return *domains_.emplace(name, std::move(opened)).first->second;
}

void LinuxUserDefaults::fileChanged(std::string_view fileName) {
    for (const auto& [name, domain] : domains_)
        if (fileName.empty() || fileName == fileNameOf(name)) domain->refresh();
}

} // namespace quorvane
