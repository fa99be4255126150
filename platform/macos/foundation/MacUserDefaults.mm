#import "platform/macos/foundation/MacUserDefaults.h"

#include <algorithm>
#include <utility>

#include "platform/macos/foundation/CallProgram.h"
#import "platform/macos/foundation/PropertyListBridge.h"

/// Hears from one domain's object, on any thread.
@interface QuorvaneDefaultsObserver : NSObject
- (instancetype)initWithHandler:(std::function<void(NSString* key, id value)>)handler;
@end

@implementation QuorvaneDefaultsObserver {
    std::function<void(NSString*, id)> _handler;
}

- (instancetype)initWithHandler:(std::function<void(NSString*, id)>)handler {
    self = [super init];
    if (self) _handler = std::move(handler);
    return self;
}

- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context {
    (void)object;
    (void)context;
    quorvane::callProgram(_handler, keyPath, change[NSKeyValueChangeNewKey]);
}

@end

namespace quorvane {

class MacUserDefaults::Store : public UserDefaults {
public:
    Store(MacUserDefaults& stores, std::string_view name) : stores_(stores), name_(name) {
        stores_.domain(name_);
    }

    PropertyList objectForKey(std::string_view key) const override {
        NSString* name = toNSString(key);
        return name ? fromNSObject([defaults() objectForKey:name]) : PropertyList();
    }
    void setObject(PropertyList value, std::string_view key) override {
        stores_.setObject(value, key, name_);
    }
    bool synchronize() override { return [defaults() synchronize]; }

private:
    NSUserDefaults* defaults() const { return stores_.domain(name_).defaults; }

    MacUserDefaults& stores_;
    std::string name_;
};

class MacUserDefaults::Standard : public StandardUserDefaults {
public:
    Standard(MacUserDefaults& stores, std::string_view name) : stores_(stores), own_(stores, name) {}

    PropertyList objectForKey(std::string_view key) const override { return own_.objectForKey(key); }
    void setObject(PropertyList value, std::string_view key) override {
        own_.setObject(std::move(value), key);
    }
    bool synchronize() override { return own_.synchronize(); }
    void addSuiteNamed(std::string_view suiteName) override { stores_.addSuite(suiteName); }
    Subscription addObserver(std::string_view key, std::function<void(std::string_view)> handler) override {
        return stores_.addObserver(key, std::move(handler));
    }

private:
    MacUserDefaults& stores_;
    Store own_;
};

MacUserDefaults::MacUserDefaults(std::string_view standardDomain)
    : standardName_(standardDomain)
    , standard_(std::make_unique<Standard>(*this, standardDomain)) {}

MacUserDefaults::~MacUserDefaults() {
    for (const auto& [name, opened] : domains_) {
        if (name != standardName_ && std::ranges::find(suites_, name) == suites_.end()) continue;
        for (const auto& [key, value] : told_) {
            if (NSString* keyPath = toNSString(key))
                [opened.defaults removeObserver:opened.observer forKeyPath:keyPath context:nullptr];
        }
    }
}

StandardUserDefaults& MacUserDefaults::standardUserDefaults() {
    return *standard_;
}

std::unique_ptr<UserDefaults> MacUserDefaults::initWithSuiteName(std::string_view suiteName) {
    return std::make_unique<Store>(*this, suiteName);
}

void MacUserDefaults::flushPendingWrites() {
    for (const auto& [name, opened] : domains_)
        [opened.defaults synchronize];
}

const MacUserDefaults::Domain& MacUserDefaults::domain(std::string_view name) {
    const auto known = domains_.find(name);
    if (known != domains_.end()) return known->second;
    // The system refuses to open the application's own domain as a suite: that is the standard object's.
    NSUserDefaults* defaults =
        name == standardName_ ? nil : [[NSUserDefaults alloc] initWithSuiteName:toNSString(name)];
    if (!defaults) defaults = NSUserDefaults.standardUserDefaults;
    const std::string owned(name);
    auto* observer =
        [[QuorvaneDefaultsObserver alloc] initWithHandler:[this, owned](NSString* key, id value) {
            // What this program writes is told after it was written.
            if (NSThread.isMainThread && isWriting_) return;
            const auto changed = fromNSString(key);
            const auto changedValue = fromNSObject(value);
            const std::weak_ptr<const bool> exists = exists_;
            dispatch_async(dispatch_get_main_queue(), ^{
              if (!exists.expired()) callProgram([&] { systemTells(owned, changed, changedValue); });
            });
        }];
    return domains_.emplace(owned, Domain{defaults, observer}).first->second;
}

void MacUserDefaults::addSuite(std::string_view name) {
    NSString* suiteName = toNSString(name);
    if (!suiteName || std::ranges::find(suites_, name) != suites_.end()) return;
    const auto& added = domain(name);
    isWriting_ = true; // Values that come with the suite were not written now.
    [NSUserDefaults.standardUserDefaults addSuiteNamed:suiteName];
    isWriting_ = false;
    suites_.emplace_back(name);
    // The system's documents do not say whether the standard object tells of a suite's changes, but the
    // suite's own object does.
    for (auto& [key, value] : told_) {
        value = standardObject(key);
        observe(key, added);
    }
}

Subscription MacUserDefaults::addObserver(std::string_view key,
                                          std::function<void(std::string_view)> handler) {
    // To the system, a dot leads from one object to the next.
    if (!toNSString(key) || key.empty() || key.find('.') != std::string_view::npos) return {};
    if (told_.try_emplace(std::string(key), standardObject(key)).second) {
        observe(key, domain(standardName_));
        for (const auto& suite : suites_)
            observe(key, domain(suite));
    }
    return changed_.connect([observed = std::string(key), handler = std::move(handler)](auto changed) {
        if (changed == observed) handler(changed);
    });
}

void MacUserDefaults::setObject(const PropertyList& value, std::string_view key,
                                std::string_view domainName) {
    NSString* name = toNSString(key);
    id object = toNSObject(value);
    // What cannot be stored is left alone: nil would remove the key.
    if (!name || (!object && !value.isNothing())) return;
    isWriting_ = true;
    [domain(domainName).defaults setObject:object forKey:name];
    isWriting_ = false;
    const auto observed = told_.find(key);
    if (observed == told_.end() || !sees(domainName, key)) return;
    observed->second = standardObject(key);
    changed_.emit(observed->first);
}

void MacUserDefaults::observe(std::string_view key, const Domain& observed) {
    NSString* keyPath = toNSString(key);
    if (!keyPath) return;
    [observed.defaults addObserver:observed.observer
                        forKeyPath:keyPath
                           options:NSKeyValueObservingOptionNew
                           context:nullptr];
}

// The value that came with the message, and not the one to be read now: two quick changes are two messages.
void MacUserDefaults::systemTells(const std::string& domainName, const std::string& key, PropertyList value) {
    const auto observed = told_.find(key);
    if (observed == told_.end() || observed->second == value || !sees(domainName, key)) return;
    observed->second = std::move(value);
    changed_.emit(observed->first);
}

bool MacUserDefaults::sees(std::string_view domainName, std::string_view key) const {
    if (domainName == standardName_) return true;
    if (std::ranges::find(suites_, domainName) == suites_.end()) return false;
    NSString* own = toNSString(standardName_);
    NSString* name = toNSString(key);
    return own && name && ![NSUserDefaults.standardUserDefaults persistentDomainForName:own][name];
}

PropertyList MacUserDefaults::standardObject(std::string_view key) const {
    return standard_->objectForKey(key);
}

} // namespace quorvane
