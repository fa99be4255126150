#include "platform/linux/defaults/LinuxUserDefaults.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr auto flushDelay = 100ms;
constexpr auto retryDelay = 2s; // after another program kept the lock, or the disk was full

} // namespace

class LinuxUserDefaults::Suite : public UserDefaults {
public:
    Suite(LinuxUserDefaults& stores, DefaultsDomain& domain) : stores_(stores), domain_(domain) {}

    PropertyList objectForKey(std::string_view key) const override { return domain_.objectForKey(key); }
    void setObject(PropertyList value, std::string_view key) override {
        domain_.setObject(key, std::move(value));
        stores_.flushSoon();
    }
    bool synchronize() override { return domain_.synchronize(); }

private:
    LinuxUserDefaults& stores_;
    DefaultsDomain& domain_;
};

class LinuxUserDefaults::Standard : public StandardUserDefaults {
public:
    Standard(LinuxUserDefaults& stores, std::string_view domain)
        : stores_(stores)
        , domain_(stores.domain(domain))
        , own_(stores, domain_) {}

    PropertyList objectForKey(std::string_view key) const override {
        auto value = own_.objectForKey(key);
        for (auto suite = suites_.begin(); value.isNothing() && suite != suites_.end(); ++suite)
            value = (*suite)->objectForKey(key);
        return value;
    }
    void setObject(PropertyList value, std::string_view key) override {
        own_.setObject(std::move(value), key);
    }
    bool synchronize() override { return own_.synchronize(); }

    void addSuiteNamed(std::string_view suiteName) override {
        auto& suite = stores_.domain(suiteName);
        if (std::ranges::find(suites_, &suite) != suites_.end()) return;
        suites_.push_back(&suite);
        suiteWrites_.push_back(suite.written.connect([this](std::string_view key) {
            if (domain_.objectForKey(key).isNothing()) writtenInSuite_.emit(key);
        }));
    }

    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override {
        auto ofOneKey = [observed = std::string(key),
                         handler = std::move(handler)](std::string_view written) {
            if (written == observed) handler(written);
        };
        auto own = std::make_shared<Subscription>(domain_.written.connect(ofOneKey));
        auto inSuites = std::make_shared<Subscription>(writtenInSuite_.connect(std::move(ofOneKey)));
        return Subscription([own, inSuites] {
            own->end();
            inSuites->end();
        });
    }

private:
    LinuxUserDefaults& stores_;
    DefaultsDomain& domain_;
    Suite own_;
    std::vector<DefaultsDomain*> suites_;
    std::vector<Subscription> suiteWrites_;
    Signal<std::string_view> writtenInSuite_;
};

LinuxUserDefaults::LinuxUserDefaults(std::filesystem::path folder, std::string_view standardDomain)
    : folder_(std::move(folder))
    , standard_(std::make_unique<Standard>(*this, standardDomain))
    , watch_(folder_, [this] {
        for (auto& [name, domain] : domains_)
            domain.tellForeignChanges();
    }) {
    flush_.setSingleShot(true);
    QObject::connect(&flush_, &QTimer::timeout, &flush_, [this] { flushPendingWrites(); });
}

LinuxUserDefaults::~LinuxUserDefaults() {
    flushPendingWrites();
}

std::filesystem::path LinuxUserDefaults::configFolder() {
    const auto* config = std::getenv("XDG_CONFIG_HOME");
    if (config && *config == '/')
        return std::filesystem::path(config) / "quorvane"; // relative ones do not count
    const auto* home = std::getenv("HOME");
    return std::filesystem::path(home ? home : "/nonexistent") / ".config" / "quorvane";
}

StandardUserDefaults& LinuxUserDefaults::standardUserDefaults() {
    return *standard_;
}

std::unique_ptr<UserDefaults> LinuxUserDefaults::initWithSuiteName(std::string_view suiteName) {
    return std::make_unique<Suite>(*this, domain(suiteName));
}

DefaultsDomain& LinuxUserDefaults::domain(std::string_view name) {
    if (const auto known = domains_.find(name); known != domains_.end()) return known->second;
    return domains_.try_emplace(std::string(name), folder_ / (std::string(name) + ".plist")).first->second;
}

void LinuxUserDefaults::flushSoon() {
    if (!flush_.isActive()) flush_.start(flushDelay);
}

void LinuxUserDefaults::flushPendingWrites() {
    flush_.stop();
    bool isAllWritten = true;
    for (auto& [name, domain] : domains_)
        isAllWritten = domain.flush() && isAllWritten;
    if (!isAllWritten) flush_.start(retryDelay);
}

} // namespace quorvane
