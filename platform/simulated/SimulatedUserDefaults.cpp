#include "platform/simulated/SimulatedUserDefaults.h"

#include <functional>
#include <utility>

namespace quorvane {

class SimulatedUserDefaults::Domain : public DefaultsDomain {
public:
    Domain(Journal& journal, const char* name) : journal_(journal), name_(name) {}

    PropertyList objectForKey(std::string_view key) override { return values_[key]; }
    void setObject(PropertyList value, std::string_view key) override {
        journal_.add(name_, " ", key, " = ", textOf(value));
        write(std::move(value), key);
    }
    void write(PropertyList value, std::string_view key) {
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
        journal_.add("synchronize ", name_);
        return true;
    }
    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override {
        journal_.add("observe ", name_, " ", key);
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

private:
    Journal& journal_;
    const char* name_;
    PropertyList values_ = PropertyList::Dictionary{};
    PropertyList forOthers_ = values_;
    bool isWritable_ = true;
    Signal<> waiting_;
    Signal<std::string_view> written_; // key
};

SimulatedUserDefaults::SimulatedUserDefaults(Journal& journal)
    : journal_(journal)
    , standard_(domain(""), [this](std::string_view name) -> DefaultsDomain& { return domain(name); }) {}

SimulatedUserDefaults::~SimulatedUserDefaults() = default;

std::unique_ptr<UserDefaults> SimulatedUserDefaults::initWithSuiteName(std::string_view suiteName) {
    return std::make_unique<DomainDefaults>(domain(suiteName));
}

void SimulatedUserDefaults::writeFromOutside(std::string_view suiteName, std::string_view key,
                                             PropertyList value) {
    domain(suiteName).write(std::move(value), key);
}

PropertyList SimulatedUserDefaults::readFromOutside(std::string_view suiteName, std::string_view key) {
    return domain(suiteName).forOthers(key);
}

void SimulatedUserDefaults::setWritable(std::string_view suiteName, bool isWritable) {
    domain(suiteName).setWritable(isWritable);
}

SimulatedUserDefaults::Domain& SimulatedUserDefaults::domain(std::string_view name) {
    auto& known = domains_[std::string(name)];
    if (!known) known = std::make_unique<Domain>(journal_, name.empty() ? "own" : "suite");
    return *known;
}

} // namespace quorvane
