#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Signal.h"
#include "platform/UserDefaults.h"
#import "platform/macos/AppKit.h"

@class QuorvaneDefaultsObserver;

namespace quorvane {

/// The user's defaults as the system keeps them. The stores it hands out must not outlive it. Main thread
/// only.
///
/// The writes of this program are told by this class, because the system may be silent about an equal value;
/// those of others by key-value observing. What the system says about a write that was told already is not
/// told again. An equal value written by another program is no change to the system, and nobody hears of it.
class MacUserDefaults : public UserDefaultsStores {
public:
    /// `standardDomain` is this application's bundle identifier.
    explicit MacUserDefaults(std::string_view standardDomain);
    MacUserDefaults(const MacUserDefaults&) = delete;
    MacUserDefaults& operator=(const MacUserDefaults&) = delete;
    ~MacUserDefaults() override;

    StandardUserDefaults& standardUserDefaults() override;
    std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view suiteName) override;

    /// Hands every write made so far to the system, so that other processes read it and it survives this one.
    void flushPendingWrites();

private:
    class Store;
    class Standard;
    struct Domain {
        NSUserDefaults* defaults;
        QuorvaneDefaultsObserver* observer;
    };

    const Domain& domain(std::string_view name);
    void addSuite(std::string_view name);
    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler);
    void setObject(const PropertyList& value, std::string_view key, std::string_view domainName);
    static void observe(std::string_view key, const Domain& observed);
    void systemTells(const std::string& domainName, const std::string& key, PropertyList value);
    bool sees(std::string_view domainName, std::string_view key) const;
    PropertyList standardObject(std::string_view key) const;

    std::string standardName_;
    std::map<std::string, Domain, std::less<>> domains_;    // by name, all that were opened
    std::vector<std::string> suites_;                       // those that the standard defaults include
    std::map<std::string, PropertyList, std::less<>> told_; // the observed keys, as they were when last told
    Signal<std::string_view> changed_;                      // key
    bool isWriting_ = false;
    std::unique_ptr<Standard> standard_;
    std::shared_ptr<const bool> exists_ = std::make_shared<const bool>(true);
};

} // namespace quorvane
