#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {
namespace {

/// Opening the shared suite and reading one rule out of it, as at every activation.
void readRuleFromSharedSuite(benchmark::State& state) {
    const QTemporaryDir folder;
    LinuxUserDefaults stores(folder.path().toStdString(), maker::bundleIdentifier);
    PropertyList::Dictionary rules;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        rules["org.example.application" + std::to_string(i)] = PropertyList::Dictionary{{"id", "xkb:ru"}};
    openSharedDefaults(stores)->setObject(std::move(rules), key::autoInput);
    stores.flushPendingWrites();
    const auto application = "org.example.application" + std::to_string(state.range(0) / 2);
    for (auto _ : state) {
        const auto autoInput = openSharedDefaults(stores)->objectForKey(key::autoInput);
        benchmark::DoNotOptimize(AppRule::ofApplication(autoInput, application).id());
    }
}
BENCHMARK(readRuleFromSharedSuite)->Arg(0)->Arg(10)->Arg(100)->Arg(10000);

} // namespace
} // namespace quorvane
