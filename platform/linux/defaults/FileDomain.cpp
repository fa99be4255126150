#include "platform/linux/defaults/FileDomain.h"

#include <algorithm>
#include <utility>

#include "platform/linux/Log.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds lockPatience = 100ms; // of who waits for the disk anyway
constexpr std::chrono::milliseconds firstRetry = 4ms;
constexpr std::chrono::milliseconds longestRetry = 1min;
/// Others hold the lock for moments. Who holds it longer than this is told of.
constexpr std::chrono::milliseconds longestMoment = 128ms;

const PropertyList::Dictionary& entriesOf(const PropertyList& value) {
    return *value.dictionary(); // a file's contents are always one
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

FileDomain::FileDomain(const std::filesystem::path& file, SettingsHealth& health)
    : file_(file, health)
    , health_(health)
    , nextRetry_(firstRetry) {
    retry_.setSingleShot(true);
    QObject::connect(&retry_, &QTimer::timeout, &retry_, [this] { flush(); });
    if (file_.mustBeWrittenBack()) saveLater();
}

FileDomain::~FileDomain() {
    save(Survives::theProgram, lockPatience);
}

PropertyList FileDomain::objectForKey(std::string_view key) {
    refresh();
    const auto pending = pending_.find(key);
    if (pending == pending_.end()) return file_.contents()[key];
    return pending->second ? pending->second->value : PropertyList();
}

void FileDomain::setObject(PropertyList value, std::string_view key) {
    auto changes = pending_;
    auto& change = changes[std::string(key)];
    change = nullptr;
    if (!value.isNothing()) {
        if (const auto reason = refusalOf(key, value); !reason.empty()) return refuse(key, reason);
        change = makeSettingsEntry(std::string(key), value);
        if (!change) return refuse(key, "it cannot be made into a property list");
        if (file_.isTooLargeWith(changes)) return refuse(key, "the file would be too large");
    }
    pending_ = std::move(changes);
    saveLater();
    changed_.emit(key);
}

void FileDomain::refuse(std::string_view key, std::string_view reason) const {
    logLine(file_.path().string() + ": " + std::string(key.substr(0, key.find('\0'))) +
            " is left as it is: " + std::string(reason));
}

bool FileDomain::synchronize() {
    return save(Survives::aPowerCut, lockPatience);
}

Subscription FileDomain::whenWritten(std::function<void()> handler) {
    if (!flush()) return written_.connect(std::move(handler));
    handler();
    return {};
}

Subscription FileDomain::addObserver(std::string_view key, std::function<void(std::string_view)> handler) {
    return changed_.connect([observed = std::string(key), handler = std::move(handler)](auto changed) {
        if (changed == observed) handler(changed);
    });
}

void FileDomain::refresh() {
    const auto before = file_.contents();
    file_.refresh();
    noticeChangesSince(before);
    if (file_.mustBeWrittenBack() && !retry_.isActive()) saveLater();
}

bool FileDomain::save(Survives what, std::chrono::milliseconds patience) {
    const bool hasFailed = nextRetry_ > firstRetry; // who holds the lock all the time is waited for once only
    const auto time = hasFailed ? 0ms : patience;
    wanted_ = std::max(wanted_, what);
    auto error = write(time);
    if (!error && wanted_ == Survives::aPowerCut) error = file_.synchronize(time);
    if (error)
        failed(error);
    else
        succeeded();
    return !error;
}

std::error_code FileDomain::write(std::chrono::milliseconds patience) {
    if (pending_.empty() && !file_.mustBeWrittenBack()) return {};
    const auto before = file_.contents();
    const auto error = file_.write(pending_, patience);
    noticeChangesSince(before);
    if (error) return error;
    pending_.clear();
    std::exchange(written_, {}).emit();
    return {};
}

void FileDomain::saveLater() {
    if (isSaveQueued_) return;
    isSaveQueued_ = true;
    later([this] {
        isSaveQueued_ = false;
        flush();
    });
}

void FileDomain::later(std::function<void()> block) {
    QMetaObject::invokeMethod(&retry_, std::move(block), Qt::QueuedConnection);
}

void FileDomain::failed(std::error_code error) {
    const bool isLocked = error == std::errc::resource_unavailable_try_again;
    const bool willPass = error == std::errc::device_or_resource_busy || error == std::errc::interrupted;
    if (!willPass && (!isLocked || nextRetry_ > longestMoment)) {
        using Obstacle = SettingsHealth::Obstacle;
        const auto file = file_.path().string();
        const auto folder = file_.path().parent_path().string();
        const auto detail = folder.empty() ? std::string("HOME is not set") : error.message();
        const bool isNews = isLocked ? health_.cannotSave(file, Obstacle::lockedByAnotherProgram, file, {})
                                     : health_.cannotSave(file, Obstacle::cannotBeWritten, folder, detail);
        if (isNews && isLocked)
            logEvent("another process keeps " + file + " locked: settings are saved later");
        else if (isNews)
            logEvent("settings are kept in memory only: " + folder + " cannot be written: " + detail);
    }
    if (retry_.isActive()) return; // a try in between neither delays the next one nor counts
    retry_.start(nextRetry_);
    nextRetry_ = std::min(2 * nextRetry_, longestRetry);
}

void FileDomain::succeeded() {
    retry_.stop();
    nextRetry_ = firstRetry;
    wanted_ = Survives::theProgram;
    if (health_.saves(file_.path().string())) logEvent("settings are saved again");
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

} // namespace quorvane
