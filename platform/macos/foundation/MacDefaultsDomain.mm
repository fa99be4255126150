#import "platform/macos/foundation/MacDefaultsDomain.h"

#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {

MacDefaultsDomain::MacDefaultsDomain(std::string_view name, Kind kind)
    : receiver_([[QuorvaneReceiver alloc] initWithHandler:[this](id key) { written(fromNSString(key)); }]) {
    NSString* named = toNSString(name);
    if (kind == Kind::applicationsOwn) {
        ownDomain_ = named;
        defaults_ = NSUserDefaults.standardUserDefaults;
    } else {
        // The system refuses to open some domains as suites. Such a one is empty and keeps nothing.
        defaults_ = [[NSUserDefaults alloc] initWithSuiteName:named];
        if (!defaults_) NSLog(@"The suite %@ cannot be opened: nothing is read or stored in it", named);
    }
}

MacDefaultsDomain::~MacDefaultsDomain() {
    for (const auto& key : observed_) {
        if (NSString* keyPath = toNSString(key))
            [defaults_ removeObserver:receiver_ forKeyPath:keyPath context:nullptr];
    }
}

PropertyList MacDefaultsDomain::get(std::string_view key) {
    NSString* name = toNSString(key);
    if (!name) return {};
    // The standard object would answer for other domains, too, where the application's own one lacks the key.
    return ownDomain_ ? fromNSObject([defaults_ persistentDomainForName:ownDomain_][name])
                      : fromNSObject([defaults_ objectForKey:name]);
}

bool MacDefaultsDomain::set(const PropertyList& value, std::string_view key) {
    NSString* name = toNSString(key);
    id object = toNSObject(value);
    // What cannot be stored is left alone: nil would remove the key.
    if (!defaults_ || !name || (!object && !value.isNothing())) return false;
    [defaults_ setObject:object forKey:name];
    return true;
}

void MacDefaultsDomain::observe(std::string_view key) {
    NSString* keyPath = toNSString(key);
    // To the system, a dot leads from one object to the next.
    if (!keyPath || key.empty() || key.find('.') != std::string_view::npos) return;
    observed_.emplace_back(key);
    [defaults_ addObserver:receiver_ forKeyPath:keyPath options:NSKeyValueObservingOptionNew context:nullptr];
}

} // namespace quorvane
