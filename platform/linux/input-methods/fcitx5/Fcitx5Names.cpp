#include "platform/linux/input-methods/fcitx5/Fcitx5Names.h"

#include "platform/linux/keyboard/XkbLayouts.h"

namespace quorvane {
namespace {

constexpr std::string_view keyboardPrefix = "keyboard-";
constexpr std::string_view idPrefix = "fcitx:";

} // namespace

std::string idOfFcitx5InputMethod(std::string_view name) {
    if (!name.starts_with(keyboardPrefix)) return std::string(idPrefix).append(name);
    name.remove_prefix(keyboardPrefix.size());
    // Names of layouts have no hyphen, those of variants have: `us-altgr-intl`.
    const auto hyphen = name.find('-');
    const bool hasVariant = hyphen != std::string_view::npos;
    return XkbLayout{std::string(name.substr(0, hyphen)),
                     hasVariant ? std::string(name.substr(hyphen + 1)) : std::string()}
        .id();
}

std::string fcitx5InputMethodOfID(std::string_view id) {
    if (id.starts_with(idPrefix)) return std::string(id.substr(idPrefix.size()));
    const auto layout = layoutOfID(id);
    if (!layout || layout->layout.empty()) return {};
    return std::string(keyboardPrefix) + layout->layout +
           (layout->variant.empty() ? "" : "-" + layout->variant);
}

} // namespace quorvane
