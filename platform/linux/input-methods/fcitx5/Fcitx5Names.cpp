#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"

#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

constexpr std::string_view keyboardPrefix = "keyboard-";

} // namespace

std::string idOfFcitx5InputMethod(std::string_view name) {
    if (!name.starts_with(keyboardPrefix)) return std::string(fcitx5IdPrefix).append(name);
    name.remove_prefix(keyboardPrefix.size());
    // Names of layouts have no hyphen, those of variants have: `us-altgr-intl`.
    const auto hyphen = name.find('-');
    const bool hasVariant = hyphen != std::string_view::npos;
    return XkbLayout{std::string(name.substr(0, hyphen)),
                     hasVariant ? std::string(name.substr(hyphen + 1)) : std::string()}
        .id();
}

std::string fcitx5InputMethodOfID(std::string_view id) {
    if (id.starts_with(fcitx5IdPrefix)) return std::string(id.substr(fcitx5IdPrefix.size()));
    const auto layout = layoutOfID(id);
    if (!layout || layout->layout.empty()) return {};
    return std::string(keyboardPrefix) + layout->layout +
           (layout->variant.empty() ? "" : "-" + layout->variant);
}

} // namespace quorvane
