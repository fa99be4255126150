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
/// Where that fails, it is tried again, at each new write and after a while.
class FileDomain : public DefaultsDomain {
public:
    /// `health` is told what cannot be saved, and must outlive this.
    FileDomain(const std::filesystem::path& file, SettingsHealth& health);
    ~FileDomain() override;
    FileDomain(const FileDomain&) = delete;
    FileDomain& operator=(const FileDomain&) = delete;

    PropertyList objectForKey(std::string_view key) override;
    /// What no file can hold is refused: the key keeps its value.
    void setObject(PropertyList value, std::string_view key) override;
    bool synchronize() override;
    Subscription whenWritten(std::function<void()> handler) override;
    Subscription addObserver(std::string_view key,
                             std::function<void(std::string_view key)> handler) override;

    /// Has other processes see every write so far; false when writes had to stay pending. Waits for nobody.
    bool flush() { return save(Survives::theProgram, std::chrono::milliseconds(0)); }

    /// Looks for changes made by others.
    void refresh();

private:
    enum class Survives { theProgram, aPowerCut };

    void refuse(std::string_view key, std::string_view reason) const;
    bool save(Survives what, std::chrono::milliseconds patience);
    std::error_code write(std::chrono::milliseconds patience);
    void saveLater();
    void later(std::function<void()> block); // from the event loop, unless this object is gone by then
    void failed(std::error_code error);
    void succeeded();
    void noticeChangesSince(const PropertyList& before);
    void announceChanges();

    DefaultsFile file_;
    SettingsHealth& health_;
    SettingsEntries pending_;
    Signal<> written_;
    Signal<std::string_view> changed_; // key
    std::set<std::string, std::less<>> changedByOthers_;
    bool isSaveQueued_ = false;

    // While saving fails: the next try. It waits longer each time, for what may never get better.
    QTimer retry_;
    std::chrono::milliseconds nextRetry_;
    Survives wanted_ = Survives::theProgram;
};

} // namespace quorvane
