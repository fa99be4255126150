#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// What the ids of its input methods begin with.
constexpr std::string_view fcitx5IdPrefix = "fcitx:";

/// The id of an input source for what Fcitx5 calls it: `xkb:ru:phonetic` for `keyboard-ru-phonetic`,
/// `fcitx:pinyin` for `pinyin`.
std::string idOfFcitx5InputMethod(std::string_view name);

/// The other way round; empty for ids that cannot be Fcitx5's.
std::string fcitx5InputMethodOfID(std::string_view id);

} // namespace quorvane
