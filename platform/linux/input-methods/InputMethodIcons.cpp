#include "platform/linux/input-methods/InputMethodIcons.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/linux/keyboard/LanguageLetters.h"

namespace quorvane {
namespace {

bool isShared(std::string_view reference) {
    constexpr std::string_view inOneColour = "-symbolic";
    if (reference.ends_with(inOneColour)) reference.remove_suffix(inOneColour.size());
    constexpr std::string_view shared[] = {"input-keyboard", "ibus-keyboard", "ibus-engine"};
    return std::ranges::find(shared, reference) != std::end(shared);
}

} // namespace

ImageRef InputMethodIcons::iconOf(const InputMethodIcon& described) const {
    if (!described.reference.empty() && !isShared(described.reference)) {
        if (auto picture = find(described.reference)) return picture;
    }
    for (const auto& letters : {described.symbol, languageLetters(described.code)}) {
        if (letters.empty()) continue;
        if (auto drawn = draw(letters)) return drawn;
    }
    return nullptr;
}

} // namespace quorvane
