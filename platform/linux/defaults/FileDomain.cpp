#include "platform/linux/defaults/FileDomain.h"

#include <algorithm>

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds lockPatience = 100ms;
constexpr std::chrono::milliseconds firstRetry = 250ms;
constexpr std::chrono::milliseconds longestRetry = 1h;

const PropertyList::Dictionary& entriesOf(const PropertyList& value) {
    static const PropertyList::Dictionary none;
    const auto* entries = value.dictionary();
    return entries ? *entries : none;
}

/// Calls the handler with each key that one of two dictionaries lacks or has another value for.
void forEachDifference(const PropertyList& before, const PropertyList& after,
                       const std::function<void(std::string_view)>& handler) {
    for (const auto& [key, value] : entriesOf(before))
        if (!(after[key] == value)) handler(key);
    for (const auto& [key, value] : entriesOf(after))
        if (before[key].isNothing()) handler(key);
}

} // namespace

std::string memoryOnly(const std::filesystem::path& folder, std::error_code error) {
    if (folder.empty()) return "settings are kept in memory only: HOME is not set";
    return "settings are kept in memory only: " + folder.string() + " cannot be written: " + error.message();
}

FileDomain::FileDomain(std::filesystem::path file) : file_(std::move(file)), nextRetry_(firstRetry) {
    retry_.setSingleShot(true);
    QObject::connect(&retry_, &QTimer::timeout, &retry_, [this] { flush(Durability::visible); });
}

FileDomain::~FileDomain() {
    flush(Durability::visible);
}

PropertyList FileDomain::objectForKey(std::string_view key) {
    refresh();
    const auto pending = pending_.find(key);
    return pending == pending_.end() ? file_.contents()[key] : pending->second;
}

void FileDomain::setObject(PropertyList value, std::string_view key) {
    pending_.insert_or_assign(std::string(key), std::move(value));
    flushLater();
    changed_.emit(key);
}

Subscription FileDomain::addObserver(std::string_view key, std::function<void(std::string_view)> handler) {
    return changed_.connect([observed = std::string(key), handler = std::move(handler)](auto changed) {
        if (changed == observed) handler(changed);
    });
}

bool FileDomain::flush(Durability durability) {
    if (pending_.empty()) return true;
    const bool hasFailed = nextRetry_ > firstRetry; // who holds the lock all the time is waited for once only
    const auto patience = hasFailed ? 0ms : lockPatience;
    const auto before = file_.contents();
    const auto error = file_.apply(pending_, durability, patience);
    noticeChangesSince(before);
    if (error) {
        retryLater(error);
        return false;
    }
    pending_.clear();
    retry_.stop();
    nextRetry_ = firstRetry;
    return true;
}

bool FileDomain::synchronize() {
    return flush(Durability::durable) && !file_.synchronize();
}

void FileDomain::refresh() {
    const auto before = file_.contents();
    file_.refresh();
    noticeChangesSince(before);
}

void FileDomain::noticeChangesSince(const PropertyList& before) {
    if (before.dictionary() == file_.contents().dictionary()) return; // the same object: nothing was read
    const bool isAnnouncementQueued = !changedByOthers_.empty();
    forEachDifference(before, file_.contents(), [this](std::string_view key) {
        if (!pending_.contains(key)) changedByOthers_.emplace(key);
    });
    if (isAnnouncementQueued || changedByOthers_.empty()) return;
    later([this] { announceChanges(); });
}

void FileDomain::announceChanges() {
    for (const auto& key : std::exchange(changedByOthers_, {}))
        changed_.emit(key);
}

void FileDomain::flushLater() {
    if (isFlushQueued_ || retry_.isActive()) return;
    isFlushQueued_ = true;
    later([this] {
        isFlushQueued_ = false;
        flush(Durability::visible);
    });
}

void FileDomain::later(std::function<void()> block) {
    QMetaObject::invokeMethod(&retry_, std::move(block), Qt::QueuedConnection);
}

void FileDomain::retryLater(std::error_code error) {
    const bool isLocked = error == std::errc::resource_unavailable_try_again;
    logLine(isLocked ? "another process keeps " + file_.path().string() + " locked: settings are saved later"
                     : memoryOnly(file_.path().parent_path(), error));
    if (retry_.isActive()) return; // a try in between neither delays the next one nor counts
    retry_.start(nextRetry_);
    nextRetry_ = std::min(2 * nextRetry_, longestRetry);
}

} // namespace quorvane
