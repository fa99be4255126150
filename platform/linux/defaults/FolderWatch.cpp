#include "platform/linux/defaults/FolderWatch.h"

#include <array>

#include <sys/inotify.h>

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

constexpr std::uint32_t writtenOrReplaced = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE;

} // namespace

FolderWatch::FolderWatch(const std::filesystem::path& folder, std::function<void()> changed)
    : inotify_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
    , changed_(std::move(changed)) {
    std::error_code error;
    if (std::filesystem::create_directories(folder, error))
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    if (!inotify_.isOpen() || inotify_add_watch(inotify_.get(), folder.c_str(), writtenOrReplaced) < 0) {
        logLine("the settings in " + folder.string() +
                " cannot be watched: changes by other programs are not seen");
        return;
    }
    events_ = std::make_unique<QSocketNotifier>(inotify_.get(), QSocketNotifier::Read);
    QObject::connect(events_.get(), &QSocketNotifier::activated, events_.get(), [this] { readEvents(); });
}

void FolderWatch::readEvents() {
    std::array<char, 4096> ignored{};
    while (read(inotify_.get(), ignored.data(), ignored.size()) > 0) {
    }
    changed_();
}

} // namespace quorvane
