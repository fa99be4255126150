#include "platform/linux/defaults/LinuxUserDefaults.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

std::filesystem::path absolutePath(const char* variable) {
    const char* value = std::getenv(variable);
    const std::filesystem::path path(value ? value : "");
    return path.is_absolute() ? path : std::filesystem::path();
}

} // namespace

class LinuxUserDefaults::Suite : public UserDefaults {
public:
    explicit Suite(DefaultsDomain& domain) : domain_(domain) {}

    PropertyList objectForKey(std::string_view key) const override { return domain_.objectForKey(key); }
    void setObject(PropertyList value, std::string_view key) override {
        domain_.setObject(std::move(value), key);
    }
    bool synchronize() override { return domain_.synchronize(); }

private:
    DefaultsDomain& domain_;
};

class LinuxUserDefaults::Standard : public StandardUserDefaults {
public:
    Standard(LinuxUserDefaults& stores, std::string_view domain)
        : stores_(stores)
        , name_(domain)
        , own_(stores.domain(domain)) {}

    PropertyList objectForKey(std::string_view key) const override {
        auto value = own_.objectForKey(key);
        for (auto suite = suites_.begin(); value.isNothing() && suite != suites_.end(); ++suite)
            value = stores_.domain(*suite).objectForKey(key);
        return value;
    }
    void setObject(PropertyList value, std::string_view key) override {
        own_.setObject(std::move(value), key);
    }
    bool synchronize() override { return own_.synchronize(); }

    void addSuiteNamed(std::string_view suiteName) override {
        stores_.domain(suiteName); // its changes count from now on
        suites_.emplace_back(suiteName);
    }

    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override {
        return stores_.changed_.connect([this, observed = std::string(key), handler = std::move(handler)](
                                            std::string_view domain, std::string_view changed) {
            if (changed == observed && sees(domain, changed)) handler(changed);
        });
    }

private:
    /// Whether a write of the key in that domain can change what is read here.
    bool sees(std::string_view domain, std::string_view key) const {
        if (domain == name_) return true;
        return std::ranges::find(suites_, domain) != suites_.end() && own_.objectForKey(key).isNothing();
    }

    LinuxUserDefaults& stores_;
    std::string name_;
    DefaultsDomain& own_;
    std::vector<std::string> suites_;
};

LinuxUserDefaults::LinuxUserDefaults(const std::filesystem::path& folder, std::string_view standardDomain)
    : folder_(folder) {
    if (const auto error = makePrivateFolder(folder_)) logLine(memoryOnly(folder_, error));
    // Before the first reading, so that no change gets lost between the two.
    if (!folder_.empty())
        watch_ = std::make_unique<FolderWatch>(folder_, [this](std::string_view name) { fileChanged(name); });
    standard_ = std::make_unique<Standard>(*this, standardDomain);
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
    return std::make_unique<Suite>(domain(suiteName));
}

void LinuxUserDefaults::flushPendingWrites() {
    for (const auto& [name, domain] : domains_)
        domain->flush(Durability::visible);
}

DefaultsDomain& LinuxUserDefaults::domain(std::string_view name) {
    const auto known = domains_.find(name);
    if (known != domains_.end()) return *known->second;
    auto file = folder_.empty() ? folder_ : folder_ / fileNameOf(name);
    auto changed = [this, domain = std::string(name)](std::string_view key) { changed_.emit(domain, key); };
    auto opened = std::make_unique<DefaultsDomain>(std::move(file), std::move(changed));
    return *domains_.emplace(name, std::move(opened)).first->second;
}

void LinuxUserDefaults::fileChanged(std::string_view fileName) {
    for (const auto& [name, domain] : domains_)
        if (fileName.empty() || fileName == fileNameOf(name)) domain->refresh();
}

} // namespace quorvane
