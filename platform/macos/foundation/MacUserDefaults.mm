#import "platform/macos/foundation/MacUserDefaults.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

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

MacDefaultsDomain& MacUserDefaults::domain(std::string_view name) {
    const auto known = domains_.find(name);
    if (known != domains_.end()) return *known->second;
    using Kind = MacDefaultsDomain::Kind;
    const auto kind = name == standardName_ ? Kind::applicationsOwn : Kind::suite;
    return *domains_.emplace(name, std::make_unique<MacDefaultsDomain>(name, kind)).first->second;
}

} // namespace quorvane
