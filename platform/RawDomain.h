#pragma once

#include <functional>
#include <string_view>

#include "platform/PropertyList.h"

namespace quorvane {

/// One domain of the user's defaults as a system keeps it. Every write is read at once, also by other
/// processes. To be used on the main thread.
class RawDomain {
public:
    virtual ~RawDomain() = default;

    /// Nothing when the key is missing.
    virtual PropertyList get(std::string_view key) = 0;

    /// Setting nothing removes the key. False when it was left as it is, because the value cannot be kept.
    virtual bool set(const PropertyList& value, std::string_view key) = 0;

    /// From now on `written` is called for this key, as far as the system tells.
    virtual void observe(std::string_view key) = 0;

    /// Waits until every write made so far is on the disk; false when that could not be done.
    virtual bool flush() = 0;

    /// What the system calls when the key has another value, whoever wrote it: at once or later, as often and
    /// in whatever order it likes, and on any thread. Set before anything is observed.
    std::function<void(std::string_view key)> written;
};

} // namespace quorvane
