#include "platform/simulated/SimulatedUserDefaults.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr std::string_view standardDomain;

} // namespace

class SimulatedUserDefaults::Suite : public UserDefaults {
public:
    Suite(SimulatedUserDefaults& stores, std::string_view domain) : stores_(stores), domain_(domain) {
        stores_.domains_.try_emplace(domain_);
    }

    PropertyList objectForKey(std::string_view key) const override {
        return stores_.domains_.find(domain_)->second.values[key];
    }
    void setObject(PropertyList value, std::string_view key) override {
        stores_.write(domain_, key, std::move(value));
    }
    bool synchronize() override {
        ++stores_.domains_.find(domain_)->second.synchronizations;
        return true;
    }

private:
    SimulatedUserDefaults& stores_;
    std::string domain_;
};

class SimulatedUserDefaults::Standard : public StandardUserDefaults {
public:
    explicit Standard(SimulatedUserDefaults& stores) : stores_(stores), own_(stores, standardDomain) {}

    PropertyList objectForKey(std::string_view key) const override {
        auto value = own_.objectForKey(key);
        for (auto suite = suites_.begin(); value.isNothing() && suite != suites_.end(); ++suite)
            value = Suite(stores_, *suite).objectForKey(key);
        return value;
    }
    void setObject(PropertyList value, std::string_view key) override {
        own_.setObject(std::move(value), key);
    }
    bool synchronize() override { return own_.synchronize(); }

    void addSuiteNamed(std::string_view suiteName) override { suites_.emplace_back(suiteName); }

    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override {
        return stores_.written_.connect([this, observed = std::string(key), handler = std::move(handler)](
                                            std::string_view domain, std::string_view written) {
            if (written == observed && sees(domain, written)) handler(written);
        });
    }

private:
    /// Whether a write of the key in that domain can change what is read here.
    bool sees(std::string_view domain, std::string_view key) const {
        if (domain == standardDomain) return true;
        return std::ranges::find(suites_, domain) != suites_.end() && own_.objectForKey(key).isNothing();
    }

    SimulatedUserDefaults& stores_;
    Suite own_;
    std::vector<std::string> suites_;
};

SimulatedUserDefaults::SimulatedUserDefaults() : standard_(std::make_unique<Standard>(*this)) {}

SimulatedUserDefaults::~SimulatedUserDefaults() = default;

StandardUserDefaults& SimulatedUserDefaults::standardUserDefaults() {
    return *standard_;
}

std::unique_ptr<UserDefaults> SimulatedUserDefaults::initWithSuiteName(std::string_view suiteName) {
    return std::make_unique<Suite>(*this, suiteName);
}

void SimulatedUserDefaults::writeFromOutside(std::string_view suiteName, std::string_view key,
                                             PropertyList value) {
    write(suiteName, key, std::move(value));
}

int SimulatedUserDefaults::synchronizations(std::string_view suiteName) const {
    const auto domain = domains_.find(suiteName);
    return domain == domains_.end() ? 0 : domain->second.synchronizations;
}

void SimulatedUserDefaults::write(std::string_view domain, std::string_view key, PropertyList value) {
    auto& values = domains_[std::string(domain)].values;
    values = values.with(key, std::move(value));
    written_.emit(domain, key);
}

} // namespace quorvane
