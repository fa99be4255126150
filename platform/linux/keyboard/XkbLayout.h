#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// A keyboard layout as XKB names it: `ru`, with the variant `phonetic` or none.
struct XkbLayout {
    std::string layout;
    std::string variant;

    bool operator==(const XkbLayout&) const = default;

    /// `xkb:ru` or `xkb:ru:phonetic`. Rules are stored by it.
    std::string id() const;
};

/// The layout of such an id; none for ids of other kinds.
std::optional<XkbLayout> layoutOfID(std::string_view id);

} // namespace quorvane
