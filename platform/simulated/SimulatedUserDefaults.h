#pragma once

#include <map>
#include <string>

#include "platform/DefaultsSearchList.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

/// Defaults that are remembered as long as the desktop they belong to.
class SimulatedUserDefaults : public UserDefaultsStores {
public:
    explicit SimulatedUserDefaults(Journal& journal);
    ~SimulatedUserDefaults() override;

    StandardUserDefaults& standardUserDefaults() override { return standard_; }
    std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view suiteName) override;

    /// A write by another program, for instance the companion application.
    void writeFromOutside(std::string_view suiteName, std::string_view key, PropertyList value);

    /// What another program reads.
    PropertyList readFromOutside(std::string_view suiteName, std::string_view key);

    /// Until it is writable again, other programs do not read what this one writes.
    void setWritable(std::string_view suiteName, bool isWritable);

private:
    class Domain;

    Domain& domain(std::string_view name);

    Journal& journal_;
    std::map<std::string, std::unique_ptr<Domain>, std::less<>> domains_; // the application's own one is ""
    DefaultsSearchList standard_;
};

} // namespace quorvane
