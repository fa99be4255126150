#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/DefaultsDomain.h"
#include "platform/Signal.h"

namespace quorvane {

/// The standard defaults as a search through domains: the application's own one, then the added suites in
/// their order. The first that has a key decides how it reads, and a write is told only where it can be
/// read: no domain before it has the key.
class DefaultsSearchList : public StandardUserDefaults {
public:
    using DomainNamed = std::function<DefaultsDomain&(std::string_view name)>;

    /// All domains must outlive it.
    DefaultsSearchList(DefaultsDomain& own, DomainNamed domainNamed)
        : own_(own)
        , domainNamed_(std::move(domainNamed))
        , searched_{&own} {}

    PropertyList objectForKey(std::string_view key) const override;
    void setObject(PropertyList value, std::string_view key) override {
        own_.setObject(std::move(value), key);
    }
    bool synchronize() override { return own_.synchronize(); }
    Subscription whenWritten(std::function<void()> handler) override {
        return own_.whenWritten(std::move(handler));
    }

    void addSuiteNamed(std::string_view suiteName) override;
    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override;
    ObservedUserDefaults& ownDomain() override { return own_; }

private:
    void watch(std::string_view key, DefaultsDomain& domain);
    bool isHidden(const DefaultsDomain& domain, std::string_view key) const;

    DomainDefaults own_;
    DomainNamed domainNamed_;
    std::vector<DefaultsDomain*> searched_;
    Signal<std::string_view> told_;                                         // key
    std::map<std::string, std::vector<Subscription>, std::less<>> watches_; // by key, one for each domain
};

} // namespace quorvane
