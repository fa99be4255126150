#include "platform/simulated/SimulatedUserDefaults.h"

namespace quorvane {

class SimulatedUserDefaults::Domain : public DefaultsDomain {
public:
    PropertyList objectForKey(std::string_view key) override { return values_[key]; }
    void setObject(PropertyList value, std::string_view key) override {
        values_ = values_.with(key, std::move(value));
        written_.emit(key);
    }
    bool synchronize() override {
        ++synchronizations_;
        return true;
    }
    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override {
        return written_.connect([observed = std::string(key), handler = std::move(handler)](auto written) {
            if (written == observed) handler(written);
        });
    }

    int synchronizations() const { return synchronizations_; }

private:
    PropertyList values_ = PropertyList::Dictionary{};
    Signal<std::string_view> written_; // key
    int synchronizations_ = 0;
};

SimulatedUserDefaults::SimulatedUserDefaults()
    : standard_(domain(""), [this](std::string_view name) -> DefaultsDomain& { return domain(name); }) {}

SimulatedUserDefaults::~SimulatedUserDefaults() = default;

std::unique_ptr<UserDefaults> SimulatedUserDefaults::initWithSuiteName(std::string_view suiteName) {
    return std::make_unique<DomainDefaults>(domain(suiteName));
}

void SimulatedUserDefaults::writeFromOutside(std::string_view suiteName, std::string_view key,
                                             PropertyList value) {
    domain(suiteName).setObject(std::move(value), key);
}

int SimulatedUserDefaults::synchronizations(std::string_view suiteName) const {
    const auto known = domains_.find(suiteName);
    return known == domains_.end() ? 0 : known->second->synchronizations();
}

SimulatedUserDefaults::Domain& SimulatedUserDefaults::domain(std::string_view name) {
    auto& known = domains_[std::string(name)];
    if (!known) known = std::make_unique<Domain>();
    return *known;
}

} // namespace quorvane
