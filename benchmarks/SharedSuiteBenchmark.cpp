#include <benchmark/benchmark.h>

#include <utility>

#include <QTemporaryDir>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"
#include "settings/SwitchTimes.h"

namespace quorvane {
namespace {

std::string application(std::int64_t number) {
    return "org.example.application" + std::to_string(number);
}

/// The shared suite as it really is: a file, with this many rules in it.
struct SharedSuite {
    explicit SharedSuite(std::int64_t rules) {
        PropertyList::Dictionary autoInput;
        for (std::int64_t i = 0; i < rules; ++i)
            autoInput[application(i)] = PropertyList::Dictionary{{"id", "xkb:ru"}};
        openSharedDefaults(stores)->setObject(std::move(autoInput), key::autoInput);
        stores.flushPendingWrites();
    }

    QTemporaryDir folder;
    LinuxUserDefaults stores{folder.path().toStdString(), maker::bundleIdentifier};
    /// Another program that shares it.
    LinuxUserDefaults others{folder.path().toStdString(), maker::companionBundleIdentifier};
};

/// Opening the shared suite and reading one rule out of it, as at every activation.
void readRuleFromSharedSuite(benchmark::State& state) {
    SharedSuite suite(state.range(0));
    const auto wanted = application(state.range(0) / 2);
    for (auto _ : state) {
        const auto autoInput = openSharedDefaults(suite.stores)->objectForKey(key::autoInput);
        benchmark::DoNotOptimize(AppRule::ofApplication(autoInput, wanted).id());
    }
}
BENCHMARK(readRuleFromSharedSuite)->Arg(0)->Arg(10)->Arg(100)->Arg(10000);

/// Counting a switch, until other programs can read it.
void countSwitchInSharedSuite(benchmark::State& state) {
    SharedSuite suite(state.range(0));
    for (auto _ : state) {
        countSwitch(*openSharedDefaults(suite.stores));
        suite.stores.flushPendingWrites();
    }
}
BENCHMARK(countSwitchInSharedSuite)->Arg(0)->Arg(200)->Arg(10000);

/// What that costs each program that watches the suite.
void noticeACountedSwitch(benchmark::State& state) {
    SharedSuite suite(state.range(0));
    const auto watching = openSharedDefaults(suite.others);
    watching->integerForKey(key::switchTimes);
    for (auto _ : state) {
        state.PauseTiming();
        countSwitch(*openSharedDefaults(suite.stores));
        suite.stores.flushPendingWrites();
        state.ResumeTiming();
        benchmark::DoNotOptimize(watching->integerForKey(key::switchTimes));
    }
}
BENCHMARK(noticeACountedSwitch)->Arg(0)->Arg(200)->Arg(10000);

} // namespace
} // namespace quorvane
