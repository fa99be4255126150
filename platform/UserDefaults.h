#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyList.h"
#include "platform/Subscription.h"

namespace quorvane {

/// One open store of the user's defaults: keys and property-list values that outlive the program.
///
/// What one object writes every other object on the same store reads at once, in this process and, at the
/// latest with the next distributed notification this process posts, in others.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// Nothing when the key is missing.
    virtual PropertyList objectForKey(std::string_view key) const = 0;

    /// Setting nothing removes the key.
    virtual void setObject(PropertyList value, std::string_view key) = 0;

    /// Waits until every write made so far is on the disk; false when that could not be done now. Nothing is
    /// lost then: the writes stay and are tried again.
    virtual bool synchronize() = 0;

    /// Calls the handler once every write made so far can be read by other processes: at once, unless the
    /// store cannot be written now. Ending the subscription gives up waiting.
    virtual Subscription whenWritten(std::function<void()> handler) = 0;

    bool boolForKey(std::string_view key) const { return objectForKey(key).boolValue(); }
    std::int64_t integerForKey(std::string_view key) const { return objectForKey(key).integerValue(); }
    std::optional<std::string> stringForKey(std::string_view key) const; ///< None for any other type.
    void setBool(bool value, std::string_view key) { setObject(value, key); }
    void setInteger(std::int64_t value, std::string_view key) { setObject(value, key); }
    void removeObjectForKey(std::string_view key) { setObject({}, key); }
};

/// A store that tells of writes.
class ObservedUserDefaults : public UserDefaults {
public:
    /// Calls the handler with the key after each write of it, also of an equal value, whoever made it:
    /// at once for this process's writes, from the run loop for those of other processes.
    virtual Subscription addObserver(std::string_view key,
                                     std::function<void(std::string_view key)> handler) = 0;
};

/// The application's own defaults.
class StandardUserDefaults : public ObservedUserDefaults {
public:
    /// From now on, keys that the application's own domain lacks are read and observed in the suite too.
    virtual void addSuiteNamed(std::string_view suiteName) = 0;

    /// The application's own domain alone, whatever suites were added.
    virtual ObservedUserDefaults& ownDomain() = 0;
};

/// Where the stores are opened.
class UserDefaultsStores {
public:
    virtual ~UserDefaultsStores() = default;

    virtual StandardUserDefaults& standardUserDefaults() = 0;

    /// A fresh object on the named suite, which other programs may share. Opening is cheap: the contents are
    /// read again only when somebody changed them.
    virtual std::unique_ptr<UserDefaults> initWithSuiteName(std::string_view suiteName) = 0;
};

} // namespace quorvane
