#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <system_error>

#include "platform/linux/defaults/DefaultsFile.h"

namespace quorvane {

/// One domain of the user's defaults in this process: what its file holds, overlaid with this process's
/// writes that are not in it yet. Those go there together, once what now runs has returned to the event loop.
class DefaultsDomain {
public:
    using KeyHandler = std::function<void(std::string_view key)>;

    /// `changed` is called at once with the key of every write of this process, and from the event loop with
    /// each key to which others gave another value.
    DefaultsDomain(std::filesystem::path file, KeyHandler changed);
    ~DefaultsDomain();
    DefaultsDomain(const DefaultsDomain&) = delete;
    DefaultsDomain& operator=(const DefaultsDomain&) = delete;

    PropertyList objectForKey(std::string_view key);
    void setObject(PropertyList value, std::string_view key);

    /// False when writes had to stay pending.
    bool flush(Durability durability);

    /// Flushes, and waits for the disk.
    bool synchronize();

    /// Looks for changes made by others.
    void refresh();

private:
    void noticeChangesSince(const PropertyList& before);
    void announceChanges();
    void flushLater();
    void later(std::function<void()> block); // from the event loop, unless this object is gone by then
    void retryLater(std::error_code error);

    DefaultsFile file_;
    PendingWrites pending_;
    std::set<std::string, std::less<>> changedByOthers_;
    KeyHandler changed_;
    bool isFlushQueued_ = false;

    // While writing fails: the next try. It waits longer each time, for what may never get better.
    QTimer retry_;
    std::chrono::milliseconds nextRetry_;
};

/// What the user is told when that folder cannot be written.
std::string memoryOnly(const std::filesystem::path& folder, std::error_code error);

} // namespace quorvane
