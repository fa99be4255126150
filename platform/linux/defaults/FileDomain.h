#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <system_error>

#include "platform/DefaultsDomain.h"
#include "platform/Signal.h"
#include "platform/linux/defaults/DefaultsFile.h"

namespace quorvane {

/// One domain of the user's defaults in this process: what its file holds, overlaid with this process's
/// writes that are not in it yet. Those go there together, once what now runs has returned to the event loop.
class FileDomain : public DefaultsDomain {
public:
    explicit FileDomain(std::filesystem::path file);
    ~FileDomain() override;
    FileDomain(const FileDomain&) = delete;
    FileDomain& operator=(const FileDomain&) = delete;

    PropertyList objectForKey(std::string_view key) override;
    void setObject(PropertyList value, std::string_view key) override;
    bool synchronize() override;
    Subscription addObserver(std::string_view key,
                             std::function<void(std::string_view key)> handler) override;

    /// False when writes had to stay pending.
    bool flush(Durability durability);

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
    Signal<std::string_view> changed_; // key
    bool isFlushQueued_ = false;

    // While writing fails: the next try. It waits longer each time, for what may never get better.
    QTimer retry_;
    std::chrono::milliseconds nextRetry_;
};

/// What the user is told when that folder cannot be written.
std::string memoryOnly(const std::filesystem::path& folder, std::error_code error);

} // namespace quorvane
