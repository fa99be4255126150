#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <cstdint>

using GVariant = struct _GVariant; // NOLINT(bugprone-reserved-identifier): GLib's

namespace quorvane {

/// An engine of IBus: an input method, or a keyboard layout.
struct IBusEngine {
    std::string name;     ///< `libpinyin`, `xkb:ru:phonetic:rus`.
    std::string longName; ///< For people, in English.
    std::string language; ///< `zh_CN`.
    std::string icon;     ///< A path, or a name in the icon theme.
    std::string symbol;   ///< A letter or two: `拼`.
    std::string textDomain;
    std::uint32_t rank = 0;
};

/// What the ids of its input methods begin with.
constexpr std::string_view ibusIdPrefix = "ibus:";

/// The id of the input source that an engine is: `ibus:libpinyin`, `xkb:ru:phonetic`.
std::string idOfEngine(std::string_view name);

/// One engine as it travels on the bus, in a variant or not; none for anything else.
std::optional<IBusEngine> engineOf(GVariant* described);

/// The engines of a list of installed ones that the user has enabled, in the user's order, each id once:
/// those of these names, or if there is none, the keyboard's layouts. None when that is no list.
std::optional<std::vector<IBusEngine>> enabledEngines(GVariant* installed,
                                                      const std::vector<std::string>& names,
                                                      const std::vector<std::string>& layoutIDs);

} // namespace quorvane
