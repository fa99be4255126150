#include "platform/linux/keyboard/LayoutUnderneath.h"

#include <algorithm>

#include "platform/linux/keyboard/XkbLayoutKeys.h"

namespace quorvane {

void LayoutUnderneath::prepareFor(std::string_view id) {
    const auto layouts = layouts_.createInputSourceList();
    auto wanted = std::ranges::find(layouts, id, &InputSource::id);
    if (wanted == layouts.end()) wanted = std::ranges::find(layouts, firstLatin(), &InputSource::id);
    if (wanted == layouts.end()) return;
    const auto current = layouts_.copyCurrentKeyboardInputSource();
    if (!current || current->id != wanted->id) layouts_.selectInputSource(*wanted);
}

bool LayoutUnderneath::isLatin() const {
    const auto current = layouts_.copyCurrentKeyboardInputSource();
    return !current || isLatin(current->id);
}

std::string LayoutUnderneath::firstLatin() const {
    const auto layouts = layouts_.createInputSourceList();
    const auto latin =
        std::ranges::find_if(layouts, [this](const auto& layout) { return isLatin(layout.id); });
    return latin == layouts.end() ? std::string() : latin->id;
}

bool LayoutUnderneath::isLatin(const std::string& id) const {
    const auto [known, isNew] = isLatin_.try_emplace(id, false);
    if (isNew) {
        const auto layout = layoutOfID(id);
        known->second = layout && hasLatinLetters(*layout);
    }
    return known->second;
}

} // namespace quorvane
