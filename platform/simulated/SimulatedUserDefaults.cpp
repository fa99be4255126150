#include "platform/simulated/SimulatedUserDefaults.h"

#include <utility>

namespace quorvane {

class SimulatedUserDefaults::Domain : public DefaultsDomain {
public:
    PropertyList objectForKey(std::string_view key) override { return values_[key]; }
    void setObject(PropertyList value, std::string_view key) override {
        values_ = values_.with(key, std::move(value));
        if (isWritable_) forOthers_ = values_;
        written_.emit(key);
    }
    Subscription whenWritten(std::function<void()> handler) override {
        if (!isWritable_) return waiting_.connect(std::move(handler));
        handler();
        return {};
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

    void setWritable(bool isWritable) {
        isWritable_ = isWritable;
        if (!isWritable_) return;
        forOthers_ = values_;
        std::exchange(waiting_, {}).emit();
    }
    PropertyList forOthers(std::string_view key) const { return forOthers_[key]; }
    int synchronizations() const { return synchronizations_; }

private:
    PropertyList values_ = PropertyList::Dictionary{};
    PropertyList forOthers_ = values_;
    bool isWritable_ = true;
    Signal<> waiting_;
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

PropertyList SimulatedUserDefaults::readFromOutside(std::string_view suiteName, std::string_view key) {
    return domain(suiteName).forOthers(key);
}

void SimulatedUserDefaults::setWritable(std::string_view suiteName, bool isWritable) {
    domain(suiteName).setWritable(isWritable);
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
