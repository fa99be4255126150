#include <benchmark/benchmark.h>

#include "platform/simulated/SimulatedDesktop.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"
#include "switching/InputDecision.h"

namespace quorvane {
namespace {

PropertyList manyRules(std::int64_t count) {
    PropertyList::Dictionary rules;
    for (std::int64_t i = 0; i < count; ++i)
        rules["org.example.application" + std::to_string(i)] = PropertyList::Dictionary{{"id", "ru"}};
    return rules;
}

/// One input decision for an application in the middle of the rules. Its source is the current one already,
/// so that nothing but the decision is measured.
void decide(benchmark::State& state) {
    SimulatedDesktop desktop;
    desktop.journal.stop();
    desktop.inputSources.enable({.id = "us"});
    desktop.inputSources.enable({.id = "ru"});
    desktop.inputSources.selectFromOutside("ru");
    desktop.defaults.standardUserDefaults().setObject("ru", key::defaultInput);
    openSharedDefaults(desktop.defaults)->setObject(manyRules(state.range(0)), key::autoInput);
    CompanionLink companion(desktop.workspace, desktop.defaults, desktop.distributedNotifications);
    const auto& launchers = desktop.desktop.facts.launchers;
    const OpenLaunchers none;
    InputSwitch inputSwitch(desktop.inputSources, desktop.defaults, desktop.workspace, launchers, none,
                            companion, [] {});
    const SwitchPause pause(desktop.runLoop, desktop.clock);
    InputDecision decision(desktop.defaults, inputSwitch, companion, pause, desktop.runLoop, desktop.clock,
                           launchers, 0, [] {});
    const auto application = "org.example.application" + std::to_string(state.range(0) / 2);
    for (auto _ : state)
        decision.decide(application);
}
BENCHMARK(decide)->Arg(0)->Arg(10)->Arg(100)->Arg(10000);

} // namespace
} // namespace quorvane
