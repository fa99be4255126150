#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/DefaultsSearchList.h"
#include "platform/ObservedDomain.h"

namespace quorvane {

/// The user's defaults as the system keeps them. The stores it hands out must not outlive it. Main thread
/// only.
class MacUserDefaults : public UserDefaultsStores {
public:
    /// `standardDomain` is this application's bundle identifier.
    explicit MacUserDefaults(std::string_view standardDomain);

    StandardUserDefaults& standardUserDefaults() override { return standard_; }
    std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view suiteName) override;

    /// Hands every write made so far to the system, so that other processes read it and it survives this one.
    void flushPendingWrites();

private:
    /// The system searches more domains than the two kinds the program knows: managed settings, arguments,
    /// the global one. So it is the system that reads.
    class Standard : public DefaultsSearchList {
    public:
        using DefaultsSearchList::DefaultsSearchList;
        PropertyList objectForKey(std::string_view key) const override;
        void addSuiteNamed(std::string_view suiteName) override;
    };

    ObservedDomain& domain(std::string_view name);

    std::string standardName_;
    std::map<std::string, std::unique_ptr<ObservedDomain>, std::less<>> domains_; // all that were opened
    Standard standard_;
};

} // namespace quorvane
