#include "platform/linux/files/FolderWatch.h"

#include <sys/inotify.h>

#include <cstring>
#include <utility>

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

// Not the creation of a file and not each piece written to it: an editor that saves in place is not done yet.
// Nor a file moved away: some editors do that just before they write the new one.
constexpr std::uint32_t folderEvents =
    IN_CLOSE_WRITE | IN_MOVED_TO | IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr std::uint32_t parentEvents = IN_CREATE | IN_MOVED_TO | IN_ONLYDIR;

std::string_view nameOf(const inotify_event& event, const char* name) {
    return event.len > 0 ? std::string_view(name) : std::string_view(); // padded with NULs
}

} // namespace

FolderWatch::FolderWatch(std::filesystem::path folder, std::function<void(std::string_view)> handler)
    : folder_(std::move(folder))
    , handler_(std::move(handler))
    , inotify_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (!inotify_.isOpen()) {
        logLine("no file watches left: settings changed by other programs are noticed late");
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(inotify_.number(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { read(); });
    watch();
}

void FolderWatch::watch() {
    if (folderWatch_ >= 0) ::inotify_rm_watch(inotify_.number(), folderWatch_);
    if (parentWatch_ >= 0) ::inotify_rm_watch(inotify_.number(), parentWatch_);
    parentWatch_ = -1;
    folderWatch_ = ::inotify_add_watch(inotify_.number(), folder_.c_str(), folderEvents);
    if (folderWatch_ >= 0) return;
    parentWatch_ = ::inotify_add_watch(inotify_.number(), folder_.parent_path().c_str(), parentEvents);
    // Made in between, so that the parent told nobody.
    folderWatch_ = ::inotify_add_watch(inotify_.number(), folder_.c_str(), folderEvents);
}

void FolderWatch::read() {
    alignas(inotify_event) char buffer[4096];
    bool mustWatchAnew = false;
    ssize_t size = 0;
    while ((size = ::read(inotify_.number(), buffer, sizeof buffer)) > 0) {
        for (const char* at = buffer; at < buffer + size;) {
            inotify_event event{};
            std::memcpy(&event, at, sizeof event);
            const auto name = nameOf(event, at + sizeof event);
            at += sizeof event + event.len;
            const bool isFolderGone =
                event.wd == folderWatch_ && (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF)) != 0;
            const bool isFolderBack = event.wd == parentWatch_ && name == folder_.filename().native();
            if (isFolderGone || isFolderBack)
                mustWatchAnew = true;
            else if (event.wd == folderWatch_ || (event.mask & IN_Q_OVERFLOW) != 0)
                handler_(name);
        }
    }
    if (!mustWatchAnew) return;
    watch();
    handler_({});
}

} // namespace quorvane
