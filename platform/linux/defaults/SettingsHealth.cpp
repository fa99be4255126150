#include "platform/linux/defaults/SettingsHealth.h"

#include <algorithm>
#include <chrono>

namespace quorvane {

std::optional<SettingsHealth::Unsaved> SettingsHealth::unsaved() const {
    const auto since = [](const auto& entry) { return entry.second.since; };
    const auto oldest = std::ranges::min_element(unsaved_, {}, since);
    if (oldest == unsaved_.end()) return std::nullopt;
    return oldest->second;
}

bool SettingsHealth::cannotSave(const std::string& file, Obstacle obstacle, std::string place,
                                std::string detail) {
    if (unsaved_.contains(file)) return false; // told already, even where another obstacle follows
    const bool isNews = std::ranges::none_of(unsaved_, [&](const auto& entry) {
        const auto& [name, other] = entry;
        return other.obstacle == obstacle && other.place == place && other.detail == detail;
    });
    const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
    unsaved_.emplace(file, Unsaved{obstacle, std::move(place), std::move(detail), now.count()});
    changed_.emit();
    return isNews;
}

bool SettingsHealth::saves(const std::string& file) {
    if (unsaved_.erase(file) == 0) return false;
    changed_.emit();
    return unsaved_.empty();
}

void SettingsHealth::wasSetAside(std::string place) {
    setAside_.push_back(std::move(place));
    changed_.emit();
}

} // namespace quorvane
