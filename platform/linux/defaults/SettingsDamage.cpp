#include "platform/linux/defaults/SettingsDamage.h"

#include <string>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "platform/linux/Log.h"
#include "platform/linux/defaults/PropertyListBytes.h"
#include "platform/linux/files/ReadFile.h"

namespace quorvane {
namespace {

constexpr std::chrono::milliseconds timeToFinishSaving{500};

} // namespace

SettingsDamage::SettingsDamage(std::filesystem::path file, SettingsHealth& health)
    : file_(std::move(file))
    , health_(health) {}

bool SettingsDamage::isNew() const {
    return seen_ && std::chrono::steady_clock::now() < *seen_ + timeToFinishSaving;
}

SettingsText SettingsDamage::found(const SettingsText& before) {
    auto inUse = before;
    std::string_view what = "the settings read before stay in use";
    if (!std::exchange(wasRead_, true)) {
        const auto saved = readFile(savedVersionOf(file_), maximumPropertyListSize);
        const auto text = SettingsText::read(saved.bytes, before);
        inUse = text.value_or(SettingsText());
        what = text ? "the ones last saved for sure are used instead" : "there are no older ones";
    }
    if (!seen_) logEvent(file_.string() + " is damaged: " + std::string(what));
    seen_ = std::chrono::steady_clock::now();
    return inUse;
}

void SettingsDamage::isOver() {
    wasRead_ = true;
    seen_.reset();
}

std::error_code SettingsDamage::setAside() {
    std::error_code error;
    auto place = beside(file_, ".damaged");
    for (int number = 2; std::filesystem::exists(std::filesystem::symlink_status(place, error)); ++number)
        place = beside(file_, ".damaged-" + std::to_string(number));
    const bool isLinked = ::linkat(AT_FDCWD, file_.c_str(), AT_FDCWD, place.c_str(), AT_SYMLINK_FOLLOW) == 0;
    const bool isCopied = !isLinked && std::filesystem::copy_file(file_, place, error);
    if (!isLinked && !isCopied) return error;
    logEvent(file_.string() + " is damaged: set aside as " + place.filename().string());
    health_.wasSetAside(place.string());
    return {};
}

std::filesystem::path beside(const std::filesystem::path& file, std::string_view suffix) {
    auto path = file;
    path += suffix;
    return path;
}

} // namespace quorvane
