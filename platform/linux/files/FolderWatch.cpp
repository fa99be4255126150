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
constexpr std::uint32_t parentEvents = IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

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
    const auto follow = [this](int& watch, const std::filesystem::path& folder, std::uint32_t events) {
        if (watch >= 0) ::inotify_rm_watch(inotify_.number(), watch);
        watch = ::inotify_add_watch(inotify_.number(), folder.c_str(), events);
        return watch >= 0;
    };
    std::filesystem::path before;
    std::error_code error;
    do {
        if (follow(folderWatch_, folder_, folderEvents)) return;
        // The nearest one above that is there tells when the next one comes.
        before = std::exchange(awaited_, folder_);
        while (!follow(parentWatch_, awaited_.parent_path(), parentEvents) && awaited_.has_relative_path())
            awaited_ = awaited_.parent_path();
        // Made in between, so that nobody told.
    } while (awaited_ != before && std::filesystem::exists(awaited_, error));
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
            const bool isGone = (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF)) != 0;
            const bool isThere = event.wd == parentWatch_ && name == awaited_.filename().native();
            if (isGone || isThere)
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
