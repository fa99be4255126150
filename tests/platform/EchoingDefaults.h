#pragma once

#include <map>
#include <set>
#include <thread>
#include <vector>

#include "contracts/UserDefaultsContract.h"
#include "platform/DefaultsSearchList.h"
#include "platform/ObservedDomain.h"

namespace quorvane {
enum class Echo { atOnce, late, twice, onAnotherThread, outOfOrder };

/// A system that tells of writes in its own way.
class EchoingDomain : public RawDomain {
public:
    explicit EchoingDomain(Echo echo) : echo_(echo) {}

    PropertyList get(std::string_view key) override { return values_[key]; }
    bool set(const PropertyList& value, std::string_view key) override {
        if (value == PropertyList("cannot be kept")) return false;
        values_ = values_.with(key, value);
        if (observed_.contains(key)) echo(std::string(key));
        return true;
    }
    void observe(std::string_view key) override {
        EXPECT_TRUE(observed_.emplace(key).second) << "observed once already: " << key;
    }
    bool flush() override { return true; }
    void echoLate() {
        for (const auto& key : std::exchange(late_, {}))
            written(key);
    }

private:
    void echo(const std::string& key) {
        if (echo_ == Echo::onAnotherThread)
            std::thread([&] { written(key); }).join();
        else if (echo_ != Echo::late && echo_ != Echo::outOfOrder)
            written(key);
        if (echo_ == Echo::late || echo_ == Echo::twice) late_.push_back(key);
        if (echo_ == Echo::outOfOrder) late_.insert(late_.begin(), key);
    }

    const Echo echo_;
    PropertyList values_ = PropertyList::Dictionary{};
    std::set<std::string, std::less<>> observed_;
    std::vector<std::string> late_;
};

/// The user's defaults on such a system.
class EchoingBench : public UserDefaultsBench, UserDefaultsStores {
public:
    explicit EchoingBench(Echo echo) : echo_(echo) {}
    ~EchoingBench() override {
        domains_.clear();
        runMainThread(); // which has nobody to tell any more
    }

    UserDefaultsStores& stores() override { return *this; }
    void writeFromOutside(const std::string& suite, const std::string& key, PropertyList value) override {
        domain(suite);
        raw_.at(suite)->set(value, key);
    }
    PropertyList readFromOutside(const std::string& suite, const std::string& key) override {
        return domain(suite).objectForKey(key);
    }
    bool waitUntil(const std::function<bool()>& condition) override {
        runMainThread();
        for (const auto& [name, raw] : raw_)
            raw->echoLate();
        runMainThread();
        return condition();
    }

private:
    StandardUserDefaults& standardUserDefaults() override { return standard_; }
    std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view name) override {
        return std::make_unique<DomainDefaults>(domain(name));
    }
    DefaultsDomain& domain(std::string_view name) {
        auto& known = domains_[std::string(name)];
        if (known) return *known;
        auto raw = std::make_unique<EchoingDomain>(echo_);
        raw_.emplace(name, raw.get());
        known = std::make_unique<ObservedDomain>(
            std::move(raw), [this](auto call) { mainThread_.push_back(std::move(call)); });
        return *known;
    }
    void runMainThread() {
        for (const auto& call : std::exchange(mainThread_, {}))
            call();
    }

    const Echo echo_;
    std::vector<std::function<void()>> mainThread_;
    std::map<std::string, EchoingDomain*, std::less<>> raw_;
    std::map<std::string, std::unique_ptr<DefaultsDomain>, std::less<>> domains_;
    DefaultsSearchList standard_{domain(""), [this](auto name) -> DefaultsDomain& { return domain(name); }};
};

} // namespace quorvane
