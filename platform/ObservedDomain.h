#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/DefaultsDomain.h"
#include "platform/RawDomain.h"
#include "platform/Signal.h"

namespace quorvane {

/// A domain that a system keeps, with every change told once. The writes of this program are told by this
/// class, because a system may be silent about an equal value; those of others when the system tells. What
/// it then says about a value that was told already is not told again. An equal value written by another
/// program is no change to the system, and nobody hears of it.
class ObservedDomain : public DefaultsDomain {
public:
    /// Calls what it is given from the main thread's run loop; is itself called on any thread.
    using OnMainThread = std::function<void(std::function<void()>)>;

    ObservedDomain(std::unique_ptr<RawDomain> raw, OnMainThread onMainThread);
    ObservedDomain(const ObservedDomain&) = delete;
    ObservedDomain& operator=(const ObservedDomain&) = delete;

    PropertyList objectForKey(std::string_view key) override { return raw_->get(key); }
    void setObject(PropertyList value, std::string_view key) override;
    bool synchronize() override { return raw_->flush(); }
    Subscription whenWritten(std::function<void()> handler) override;
    Subscription addObserver(std::string_view key,
                             std::function<void(std::string_view key)> handler) override;

private:
    void tellIfNew(const std::string& key);

    std::map<std::string, PropertyList, std::less<>>
        told_;                         ///< The observed keys, as they were when last told.
    Signal<std::string_view> changed_; ///< key
    std::shared_ptr<const bool> exists_ = std::make_shared<const bool>(true);
    std::unique_ptr<RawDomain> raw_; ///< Goes first: it calls this object.
};

} // namespace quorvane
