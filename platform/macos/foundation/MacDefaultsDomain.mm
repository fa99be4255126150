#import "platform/macos/foundation/MacDefaultsDomain.h"

#include <utility>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"

/// Hears of the keys of one domain's object, on any thread.
@interface QuorvaneDefaultsObserver : NSObject
- (instancetype)initWithHandler:(std::function<void(NSString* key)>)handler;
@end

@implementation QuorvaneDefaultsObserver {
    std::function<void(NSString*)> _handler;
}

- (instancetype)initWithHandler:(std::function<void(NSString*)>)handler {
    self = [super init];
    if (self) _handler = std::move(handler);
    return self;
}

- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context {
    (void)object;
    (void)change;
    (void)context;
    if (keyPath) quorvane::callProgram(_handler, keyPath);
}

@end

namespace quorvane {

MacDefaultsDomain::MacDefaultsDomain(std::string_view name, Kind kind) {
    NSString* named = toNSString(name);
    if (kind == Kind::applicationsOwn) {
        ownDomain_ = named;
        defaults_ = NSUserDefaults.standardUserDefaults;
    } else {
        // The system refuses to open some domains as suites. Such a one is empty and keeps nothing.
        defaults_ = [[NSUserDefaults alloc] initWithSuiteName:named];
        if (!defaults_) NSLog(@"The suite %@ cannot be opened: nothing is read or stored in it", named);
    }
    observer_ = [[QuorvaneDefaultsObserver alloc] initWithHandler:[this](NSString* key) { systemSays(key); }];
}

MacDefaultsDomain::~MacDefaultsDomain() {
    for (const auto& [key, value] : told_) {
        if (NSString* keyPath = toNSString(key))
            [defaults_ removeObserver:observer_ forKeyPath:keyPath context:nullptr];
    }
}

PropertyList MacDefaultsDomain::objectForKey(std::string_view key) {
    NSString* name = toNSString(key);
    return name ? read(name) : PropertyList();
}

void MacDefaultsDomain::setObject(PropertyList value, std::string_view key) {
    NSString* name = toNSString(key);
    id object = toNSObject(value);
    // What cannot be stored is left alone: nil would remove the key.
    if (!defaults_ || !name || (!object && !value.isNothing())) return;
    isWriting_ = true;
    [defaults_ setObject:object forKey:name];
    isWriting_ = false;
    const auto observed = told_.find(key);
    if (observed == told_.end()) return;
    observed->second = read(name);
    changed_.emit(observed->first);
}

/// Other processes ask the system's own service, which knows of every write.
Subscription MacDefaultsDomain::whenWritten(std::function<void()> handler) {
    handler();
    return {};
}

Subscription MacDefaultsDomain::addObserver(std::string_view key,
                                            std::function<void(std::string_view)> handler) {
    NSString* keyPath = toNSString(key);
    // To the system, a dot leads from one object to the next.
    if (!keyPath || key.empty() || key.find('.') != std::string_view::npos) return {};
    if (told_.try_emplace(std::string(key), read(keyPath)).second) {
        [defaults_ addObserver:observer_
                    forKeyPath:keyPath
                       options:NSKeyValueObservingOptionNew
                       context:nullptr];
    }
    return changed_.connect([observed = std::string(key), handler = std::move(handler)](auto changed) {
        if (changed == observed) handler(changed);
    });
}

/// The standard object would answer for other domains, too, where the application's own one lacks the key.
PropertyList MacDefaultsDomain::read(NSString* key) const {
    if (!ownDomain_) return fromNSObject([defaults_ objectForKey:key]);
    return fromNSObject([defaults_ persistentDomainForName:ownDomain_][key]);
}

void MacDefaultsDomain::systemSays(NSString* key) {
    // What this program writes is told after it was written.
    if (NSThread.isMainThread && isWriting_) return;
    const auto changed = fromNSString(key);
    const auto value = read(key);
    const std::weak_ptr<const bool> exists = exists_;
    dispatch_async(dispatch_get_main_queue(), ^{
      if (!exists.expired()) callProgram([&] { changedByOthers(changed, value); });
    });
}

void MacDefaultsDomain::changedByOthers(const std::string& key, PropertyList value) {
    const auto observed = told_.find(key);
    if (observed == told_.end() || observed->second == value) return;
    observed->second = std::move(value);
    changed_.emit(observed->first);
}

} // namespace quorvane
