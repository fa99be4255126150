#include "platform/linux/x11/keyboard/XkbLayouts.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

namespace quorvane {
namespace {

std::vector<std::string> split(std::string_view text, std::string_view separators) {
    std::vector<std::string> parts;
    for (;;) {
        const auto end = text.find_first_of(separators);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

/// One component of the symbols: `ru(phonetic):2`.
struct Component {
    XkbLayout layout;
    std::size_t group = 1;
};

Component parseComponent(std::string_view text) {
    Component component;
    if (const auto colon = text.rfind(':'); colon != std::string_view::npos) {
        const auto number = text.substr(colon + 1);
        std::from_chars(number.data(), number.data() + number.size(), component.group);
        text = text.substr(0, colon);
    }
    const auto open = text.find('(');
    component.layout.layout = text.substr(0, open);
    if (open != std::string_view::npos && text.ends_with(')'))
        component.layout.variant = text.substr(open + 1, text.size() - open - 2);
    return component;
}

/// Every component by the group it stands for, in order. The first group holds what belongs to all groups
/// too.
std::multimap<std::size_t, XkbLayout> componentsByGroup(std::string_view symbols) {
    std::multimap<std::size_t, XkbLayout> byGroup;
    for (const auto& part : split(symbols, "+|")) {
        auto component = parseComponent(part);
        byGroup.emplace(component.group, std::move(component.layout));
    }
    return byGroup;
}

/// The keys that every layout of a PC keyboard shares; stands before the first layout.
bool isBaseOfKeyboard(const XkbLayout& component) {
    return component.layout == "pc";
}

} // namespace

std::vector<XkbLayout> layoutsOfGroups(const XkbMapDescription& map) {
    const auto byGroup = componentsByGroup(map.symbols);
    auto declaredLayouts = split(map.declaredLayouts, ",");
    auto declaredVariants = split(map.declaredVariants, ",");
    declaredLayouts.resize(map.groupCount);
    declaredVariants.resize(map.groupCount);

    std::vector<XkbLayout> layouts;
    for (std::size_t group = 0; group < map.groupCount; ++group) {
        const auto [begin, end] = byGroup.equal_range(group + 1);
        XkbLayout layout{declaredLayouts[group], declaredVariants[group]};
        const bool isBorneOut =
            std::any_of(begin, end, [&](const auto& component) { return component.second == layout; });
        if (!isBorneOut || layout.layout.empty()) {
            const auto component = std::find_if(begin, end, [](const auto& candidate) {
                return !candidate.second.layout.empty() && !isBaseOfKeyboard(candidate.second);
            });
            const auto name = group < map.groupNames.size() ? map.groupNames[group] : std::string();
            layout = component != end ? component->second : XkbLayout{name, ""};
        }
        layouts.push_back(std::move(layout));
    }
    return layouts;
}

} // namespace quorvane
