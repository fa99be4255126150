#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Signal.h"
#include "platform/UserDefaults.h"

namespace quorvane {

/// Defaults that are remembered as long as the desktop they belong to.
class SimulatedUserDefaults : public UserDefaultsStores {
public:
    SimulatedUserDefaults();
    ~SimulatedUserDefaults() override;

    StandardUserDefaults& standardUserDefaults() override;
    std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view suiteName) override;

    /// A write by another program, for instance the companion application.
    void writeFromOutside(std::string_view suiteName, std::string_view key, PropertyList value);

    /// How often a suite (or the standard store, "") was synchronized.
    int synchronizations(std::string_view suiteName) const;

private:
    class Standard;
    class Suite;
    struct Domain {
        PropertyList values = PropertyList::Dictionary{};
        int synchronizations = 0;
    };

    void write(std::string_view domain, std::string_view key, PropertyList value);

    std::map<std::string, Domain, std::less<>> domains_; // the standard one is ""
    Signal<std::string_view, std::string_view> written_; // domain, key
    std::unique_ptr<Standard> standard_;
};

} // namespace quorvane
