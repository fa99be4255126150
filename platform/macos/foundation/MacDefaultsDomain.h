#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/DefaultsDomain.h"
#include "platform/Signal.h"
#import "platform/macos/AppKit.h"

@class QuorvaneDefaultsObserver;

namespace quorvane {

/// One domain of the user's defaults as the system keeps them. Main thread only.
///
/// The writes of this program are told by this class, because the system may be silent about an equal value;
/// those of others by key-value observing. What the system says about a write that was told already is not
/// told again. An equal value written by another program is no change to the system, and nobody hears of it.
class MacDefaultsDomain : public DefaultsDomain {
public:
    enum class Kind { applicationsOwn, suite };

    MacDefaultsDomain(std::string_view name, Kind kind);
    MacDefaultsDomain(const MacDefaultsDomain&) = delete;
    MacDefaultsDomain& operator=(const MacDefaultsDomain&) = delete;
    ~MacDefaultsDomain() override;

    PropertyList objectForKey(std::string_view key) override;
    void setObject(PropertyList value, std::string_view key) override;
    bool synchronize() override { return [defaults_ synchronize]; }
    Subscription whenWritten(std::function<void()> handler) override;
    Subscription addObserver(std::string_view key,
                             std::function<void(std::string_view key)> handler) override;

private:
    PropertyList read(NSString* key) const; // on any thread
    void systemSays(NSString* key);         // on any thread
    void changedByOthers(const std::string& key, PropertyList value);

    NSUserDefaults* defaults_; // nil for a suite that cannot be opened
    NSString* ownDomain_;      // nil for a suite
    QuorvaneDefaultsObserver* observer_;
    std::map<std::string, PropertyList, std::less<>> told_; // the observed keys, as they were when last told
    Signal<std::string_view> changed_;                      // key
    bool isWriting_ = false;
    std::shared_ptr<const bool> exists_ = std::make_shared<const bool>(true);
};

} // namespace quorvane
