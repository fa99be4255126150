// The contracts of the ports, on the simulated desktop and on systems with manners of their own.

#include "EchoingDefaults.h"
#include "contracts/DistributedNotificationCenterContract.h"
#include "contracts/HotKeysContract.h"
#include "contracts/TextInputSourcesContract.h"
#include "contracts/UserDefaultsContract.h"
#include "contracts/WorkspaceContract.h"
#include "platform/simulated/SimulatedDesktop.h"

namespace quorvane {
namespace {

template <class Bench>
class SimulatedBench : public Bench {
public:
    bool waitUntil(const std::function<bool()>& condition) override {
        desktop_.runLoop.advance(10);
        return condition();
    }

protected:
    SimulatedDesktop desktop_;
};

class SimulatedUserDefaultsBench : public SimulatedBench<UserDefaultsBench> {
public:
    UserDefaultsStores& stores() override { return desktop_.defaults; }
    void writeFromOutside(const std::string& suite, const std::string& key, PropertyList value) override {
        desktop_.defaults.writeFromOutside(suite, key, std::move(value));
    }
    PropertyList readFromOutside(const std::string& suite, const std::string& key) override {
        return desktop_.defaults.initWithSuiteName(suite)->objectForKey(key);
    }
};

class SimulatedNotificationsBench : public SimulatedBench<DistributedNotificationCenterBench> {
public:
    DistributedNotificationCenter& center() override { return desktop_.distributedNotifications; }
    void postFromOutside(const DistributedNotification& notification) override {
        desktop_.distributedNotifications.postFromOutside(notification);
    }
};

class SimulatedInputSourcesBench : public SimulatedBench<TextInputSourcesBench> {
public:
    SimulatedInputSourcesBench() {
        for (const auto* id : {"xkb:us", "xkb:ru", "xkb:de:neo"})
            desktop_.inputSources.enable({.id = id});
    }
    TextInputSources& sources() override { return desktop_.inputSources; }
    int changesTold() const override { return changes_; }
    void selectFromOutside(const std::string& id) override { desktop_.inputSources.selectFromOutside(id); }
    void disable(const std::string& id) override { desktop_.inputSources.disable(id); }

private:
    int changes_ = 0;
    Subscription counting_ = desktop_.distributedNotifications.addObserver(
        selectedKeyboardInputSourceChangedNotification, [this](const auto&) { ++changes_; });
};

class SimulatedWorkspaceBench : public SimulatedBench<WorkspaceBench> {
public:
    Workspace& workspace() override { return desktop_.workspace; }
    void openWindow(const std::string& id) override { desktop_.workspace.activate(id); }
    void activate(const std::string& id) override { desktop_.workspace.activate(id); }
    void hide(const std::string& id) override { desktop_.workspace.hide(id); }
    void quit(const std::string& id) override { desktop_.workspace.quit(id); }
};

class SimulatedHotKeysBench : public SimulatedBench<HotKeysBench> {
public:
    HotKeys& hotKeys() override { return desktop_.hotKeys; }
    void press(const KeyCombination& combination) override { desktop_.hotKeys.press(combination); }
    void takeFromOutside(const KeyCombination& combination) override {
        desktop_.hotKeys.takeFromOutside(combination);
    }
};

template <class Bench>
auto simulated() {
    return testing::Values([] { return std::make_unique<Bench>(); });
}

INSTANTIATE_TEST_SUITE_P(Simulated, UserDefaultsContract, simulated<SimulatedUserDefaultsBench>());
INSTANTIATE_TEST_SUITE_P(Simulated, DistributedNotificationCenterContract,
                         simulated<SimulatedNotificationsBench>());
INSTANTIATE_TEST_SUITE_P(Simulated, HotKeysContract, simulated<SimulatedHotKeysBench>());
INSTANTIATE_TEST_SUITE_P(Simulated, TextInputSourcesContract, simulated<SimulatedInputSourcesBench>());
INSTANTIATE_TEST_SUITE_P(Simulated, WorkspaceContract, simulated<SimulatedWorkspaceBench>());
INSTANTIATE_TEST_SUITE_P(Simulated, EmptyFrontContract, simulated<SimulatedWorkspaceBench>());

TEST(ObservedDomain, IsSilentAboutWhatIsNotKeptAndAboutOldNews) {
    EchoingBench bench(Echo::late);
    auto& own = bench.stores().standardUserDefaults().ownDomain();
    std::vector<PropertyList> seen;
    const auto observe = [&] {
        return own.addObserver("key", [&](auto key) { seen.push_back(own.objectForKey(key)); });
    };
    const auto first = observe();
    const auto second = observe();
    own.setObject("cannot be kept", "key");
    bench.writeFromOutside("", "key", "others'");
    own.setObject("own", "key");
    EXPECT_TRUE(bench.waitUntil([] { return true; }));
    EXPECT_THAT(seen, testing::ElementsAre("own", "own")) << "to both observers";
}

template <Echo echo>
std::unique_ptr<UserDefaultsBench> echoing() {
    return std::make_unique<EchoingBench>(echo);
}

INSTANTIATE_TEST_SUITE_P(Echoing, UserDefaultsContract,
                         testing::Values(echoing<Echo::atOnce>, echoing<Echo::late>, echoing<Echo::twice>,
                                         echoing<Echo::onAnotherThread>, echoing<Echo::outOfOrder>));

} // namespace
} // namespace quorvane
