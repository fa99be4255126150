#include "platform/linux/preferences/IconLoader.h"

#include <utility>

#include "platform/linux/qt/ApplicationIcon.h"

namespace quorvane {
namespace {

/// Many times what any screen shows at once.
constexpr std::size_t mostIconsKept = 500;

} // namespace

IconLoader::IconLoader(std::function<void()> loaded) : loaded_(std::move(loaded)) {
    turn_.setInterval(0);
    QObject::connect(&turn_, &QTimer::timeout, &turn_, [this] { loadNext(); });
}

QPixmap IconLoader::pixmapOf(const Icon& icon) const {
    const auto found = pixmaps_.find(icon);
    return found == pixmaps_.end() ? QPixmap() : found->second;
}

void IconLoader::load(const std::vector<Icon>& icons) {
    waiting_.clear();
    for (const auto& icon : icons)
        if (!pixmaps_.contains(icon)) waiting_.push_back(icon);
    if (waiting_.empty())
        turn_.stop();
    else
        turn_.start();
}

void IconLoader::clear() {
    waiting_.clear();
    turn_.stop();
    pixmaps_.clear();
}

void IconLoader::loadNext() {
    const auto icon = std::move(waiting_.front());
    waiting_.pop_front();
    if (waiting_.empty()) turn_.stop();
    if (pixmaps_.size() >= mostIconsKept) pixmaps_.clear(); // Those in sight are asked for again.
    pixmaps_[icon] = ApplicationIcon::load(icon.name, {icon.width, icon.height}, icon.pixelsPerPoint);
    loaded_();
}

} // namespace quorvane
