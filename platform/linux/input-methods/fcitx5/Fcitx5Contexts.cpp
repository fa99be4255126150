#include "platform/linux/input-methods/fcitx5/Fcitx5Contexts.h"

#include <utility>

namespace quorvane {
namespace {

constexpr auto npos = std::string_view::npos;

/// `IC [73257adc33324008bc857f96fb904f8c] program:xterm frontend:xim cap:4000000000 focus:1`
std::optional<Fcitx5Context> contextInLine(std::string_view line) {
    const auto open = line.find('[');
    const auto close = line.find(']', open);
    const auto focus = line.rfind(" focus:");
    if (open == npos || close == npos || focus == npos || focus < close) return std::nullopt;
    Fcitx5Context context{std::string(line.substr(open + 1, close - open - 1)), {}, false};
    const auto value = line.substr(focus + std::string_view(" focus:").size());
    if (value.empty() || (value.front() != '0' && value.front() != '1')) return std::nullopt;
    context.hasFocus = value.front() == '1';
    constexpr std::string_view key = " frontend:";
    if (const auto frontend = line.find(key, close); frontend != npos) {
        const auto begin = frontend + key.size();
        context.frontend = line.substr(begin, line.find(' ', begin) - begin);
    }
    return context;
}

} // namespace

std::optional<std::vector<Fcitx5Context>> contextsInDebugInfo(std::string_view text) {
    // Always there, also when no program is connected.
    if (text.find("InputContext") == npos && text.find("Input Context") == npos) return std::nullopt;
    std::vector<Fcitx5Context> contexts;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = text.substr(0, end);
        text.remove_prefix(end == npos ? text.size() : end + 1);
        if (line.substr(0, line.find('[')).find("IC ") == npos) continue;
        auto context = contextInLine(line);
        if (!context) return std::nullopt;
        contexts.push_back(std::move(*context));
    }
    return contexts;
}

} // namespace quorvane
