#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

constexpr std::string_view idPrefix = "xkb:";

} // namespace

std::string XkbLayout::id() const {
    return std::string(idPrefix) + layout + (variant.empty() ? "" : ":" + variant);
}

std::optional<XkbLayout> layoutOfID(std::string_view id) {
    if (!id.starts_with(idPrefix)) return std::nullopt;
    id.remove_prefix(idPrefix.size());
    const auto colon = id.find(':');
    if (colon == std::string_view::npos) return XkbLayout{std::string(id), ""};
    const auto variant = id.substr(colon + 1);
    return XkbLayout{std::string(id.substr(0, colon)), std::string(variant.substr(0, variant.find(':')))};
}

} // namespace quorvane
