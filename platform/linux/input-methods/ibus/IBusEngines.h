#pragma once

#include <map>
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

    std::string id() const;
    bool isLayout() const;
};

/// What the ids of its input methods begin with.
constexpr std::string_view ibusIdPrefix = "ibus:";

/// The id of the input source that an engine is: `ibus:libpinyin`, `xkb:ru:phonetic`.
std::string idOfEngine(std::string_view name);

/// One engine as it travels on the bus, in a variant or not; none for anything else.
std::optional<IBusEngine> engineOf(GVariant* described);

/// The engines that are installed.
class IBusEngines {
public:
    IBusEngines() = default;
    explicit IBusEngines(const std::vector<IBusEngine>& engines);

    /// As the bus tells them; none when that is no list. What in it is no engine is left out.
    static std::optional<IBusEngines> ofList(GVariant* list);

    // Null when there is none.
    const IBusEngine* named(std::string_view name) const;
    const IBusEngine* withID(std::string_view id) const; ///< Of several, the best one.

    /// The best input method for the language of a locale like `zh_CN.UTF-8`.
    const IBusEngine* methodForLocale(std::string_view locale) const;

private:
    const IBusEngine* methodForLanguage(std::string_view language) const;

    std::map<std::string, IBusEngine, std::less<>> byName_;
    std::map<std::string, std::string, std::less<>> nameByID_;
};

} // namespace quorvane
