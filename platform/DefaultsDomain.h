#pragma once

#include <functional>
#include <utility>

#include "platform/UserDefaults.h"

namespace quorvane {

/// One domain of the user's defaults, as a desktop keeps it: there is one of these for each domain, however
/// many stores are open on it. It knows nothing of other domains.
class DefaultsDomain {
public:
    virtual ~DefaultsDomain() = default;

    // As of a store on this domain alone.
    virtual PropertyList objectForKey(std::string_view key) = 0;
    virtual void setObject(PropertyList value, std::string_view key) = 0;
    virtual bool synchronize() = 0;
    virtual Subscription whenWritten(std::function<void()> handler) = 0;
    virtual Subscription addObserver(std::string_view key,
                                     std::function<void(std::string_view key)> handler) = 0;
};

/// One of the stores on a domain, which must outlive it.
class DomainDefaults : public ObservedUserDefaults {
public:
    explicit DomainDefaults(DefaultsDomain& domain) : domain_(domain) {}

    PropertyList objectForKey(std::string_view key) const override { return domain_.objectForKey(key); }
    void setObject(PropertyList value, std::string_view key) override {
        domain_.setObject(std::move(value), key);
    }
    bool synchronize() override { return domain_.synchronize(); }
    Subscription whenWritten(std::function<void()> handler) override {
        return domain_.whenWritten(std::move(handler));
    }
    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override {
        return domain_.addObserver(key, std::move(handler));
    }

private:
    DefaultsDomain& domain_;
};

} // namespace quorvane
