#import "platform/macos/foundation/MacUserDefaults.h"

#include <utility>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/MacDefaultsDomain.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

void onMainThread(const std::function<void()>& call) {
    const auto kept = call; // Blocks hold variables, not what references refer to.
    dispatch_async(dispatch_get_main_queue(), ^{
      callProgram(kept);
    });
}

} // namespace

PropertyList MacUserDefaults::Standard::objectForKey(std::string_view key) const {
    NSString* name = toNSString(key);
    return name ? fromNSObject([NSUserDefaults.standardUserDefaults objectForKey:name]) : PropertyList();
}

void MacUserDefaults::Standard::addSuiteNamed(std::string_view suiteName) {
    NSString* name = toNSString(suiteName);
    if (!name) return;
    [NSUserDefaults.standardUserDefaults addSuiteNamed:name];
    DefaultsSearchList::addSuiteNamed(suiteName);
}

MacUserDefaults::MacUserDefaults(std::string_view standardDomain)
    : standardName_(standardDomain)
    , standard_(domain(standardDomain),
                [this](std::string_view name) -> DefaultsDomain& { return domain(name); }) {}

std::unique_ptr<UserDefaults> MacUserDefaults::initWithSuiteName(std::string_view suiteName) {
    return std::make_unique<DomainDefaults>(domain(suiteName));
}

void MacUserDefaults::flushPendingWrites() {
    for (const auto& [name, opened] : domains_)
        opened->synchronize();
}

ObservedDomain& MacUserDefaults::domain(std::string_view name) {
    const auto known = domains_.find(name);
    if (known != domains_.end()) return *known->second;
    using Kind = MacDefaultsDomain::Kind;
    const auto kind = name == standardName_ ? Kind::applicationsOwn : Kind::suite;
    auto raw = std::make_unique<MacDefaultsDomain>(name, kind);
    auto opened = std::make_unique<ObservedDomain>(std::move(raw), onMainThread);
    return *domains_.emplace(name, std::move(opened)).first->second;
}

} // namespace quorvane
