#include "platform/linux/input-methods/fcitx5/Fcitx5Answers.h"

#include <algorithm>

#include "platform/linux/dbus/GLibRefs.h"

namespace quorvane {
namespace {

/// What follows the key in a line, up to a blank.
std::string_view valueOf(std::string_view key, std::string_view line) {
    const auto place = line.find(key);
    if (place == std::string_view::npos) return {};
    const auto rest = line.substr(place + key.size());
    return rest.substr(0, rest.find(' '));
}

} // namespace

/// `IC [73257adc33324008bc857f96fb904f8c] program:xterm frontend:xim cap:4000000000 focus:1`
Fcitx5Focus fcitx5FocusIn(std::string_view debugInfo) {
    // Always there, also when no program is connected.
    Fcitx5Focus focus{debugInfo.find("InputContext") != std::string_view::npos ||
                          debugInfo.find("Input Context") != std::string_view::npos,
                      {}};
    while (!debugInfo.empty()) {
        const auto end = std::min(debugInfo.find('\n'), debugInfo.size());
        const auto line = debugInfo.substr(0, end);
        debugInfo.remove_prefix(std::min(end + 1, debugInfo.size()));
        const auto uuid = valueOf("IC [", line.substr(0, line.find(']')));
        if (uuid.empty()) continue;
        const auto hasFocus = valueOf(" focus:", line);
        if (hasFocus != "0" && hasFocus != "1") return {};
        if (hasFocus == "1") focus.context = {std::string(uuid), valueOf(" frontend:", line) == "dbus"};
    }
    return focus;
}

std::map<std::string, Fcitx5InputMethod> fcitx5InputMethodsIn(GVariant* answer) {
    std::map<std::string, Fcitx5InputMethod> inputMethods;
    const GVariantRef list(g_variant_get_child_value(answer, 0));
    GVariantIter each;
    g_variant_iter_init(&each, list.get());
    const char *ownName, *name, *nativeName, *icon, *label;
    while (g_variant_iter_next(&each, "(&s&s&s&s&s&sb)", &ownName, &name, &nativeName, &icon, &label, nullptr,
                               nullptr))
        inputMethods.try_emplace(ownName, Fcitx5InputMethod{name, nativeName, icon, label});
    return inputMethods;
}

Fcitx5Group fcitx5GroupIn(GVariant* answer) {
    const char* layout = nullptr;
    g_variant_get_child(answer, 0, "&s", &layout);
    Fcitx5Group group{{}, std::string("keyboard-").append(layout)};
    auto& names = group.inputMethods;
    const GVariantRef items(g_variant_get_child_value(answer, 1));
    GVariantIter each;
    g_variant_iter_init(&each, items.get());
    const char* name = nullptr;
    while (g_variant_iter_next(&each, "(&s&s)", &name, nullptr)) {
        if (*name && std::ranges::find(names, name) == names.end()) names.emplace_back(name);
    }
    return group;
}

} // namespace quorvane
