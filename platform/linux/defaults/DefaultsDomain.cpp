#include "platform/linux/defaults/DefaultsDomain.h"

#include <set>

#include "platform/linux/Log.h"

namespace quorvane {

DefaultsDomain::DefaultsDomain(std::filesystem::path path) : file_(std::move(path)) {
    refresh();
    told_ = values_;
}

void DefaultsDomain::refresh() {
    const auto identity = file_.identity();
    if (identity == identity_) return;
    identity_ = identity;
    // A file that cannot be parsed may just be in the hands of an editor that saves in place: what was good
    // stays in force, and nothing is done to the file before something is to be written.
    if (auto values = file_.read())
        values_ = std::move(*values);
    else
        logLine(file_.path().string() + " is damaged; what it held before stays in force");
}

PropertyList DefaultsDomain::objectForKey(std::string_view key) {
    if (const auto pending = pending_.find(key); pending != pending_.end()) return pending->second;
    refresh();
    return values_[key];
}

void DefaultsDomain::setObject(std::string_view key, PropertyList value) {
    told_ = told_.with(key, value);
    pending_.insert_or_assign(std::string(key), std::move(value));
    written.emit(key);
}

bool DefaultsDomain::flush() {
    return pending_.empty() || write(DefaultsFile::Durability::visible);
}

bool DefaultsDomain::synchronize() {
    if (!pending_.empty()) return write(DefaultsFile::Durability::onDisk);
    if (!isOnDisk_) isOnDisk_ = file_.sync();
    return isOnDisk_;
}

bool DefaultsDomain::write(DefaultsFile::Durability durability) {
    refresh();
    auto contents = file_.merge(pending_, values_, durability);
    if (!contents) return false;
    values_ = std::move(*contents);
    identity_ = file_.identity();
    pending_.clear();
    isOnDisk_ = durability == DefaultsFile::Durability::onDisk;
    return true;
}

void DefaultsDomain::tellForeignChanges() {
    refresh();
    std::set<std::string> changed;
    const auto& now = *values_.dictionary();
    const auto* before = told_.dictionary();
    for (const auto& [key, value] : now) {
        if (!pending_.contains(key) && !(told_[key] == value)) changed.insert(key);
    }
    for (const auto& [key, value] : *before) {
        if (!pending_.contains(key) && !now.contains(key)) changed.insert(key);
    }
    told_ = values_;
    for (const auto& [key, value] : pending_)
        told_ = told_.with(key, value);
    for (const auto& key : changed)
        written.emit(key);
}

} // namespace quorvane
