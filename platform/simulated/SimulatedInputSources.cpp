#include "platform/simulated/SimulatedInputSources.h"

#include <algorithm>
#include <utility>

namespace quorvane {

std::vector<InputSource>
SimulatedInputSources::createInputSourceList(std::optional<std::string_view> id) const {
    journal_.add("list ", id.value_or("all"));
    return sourcesOf(id);
}

std::vector<InputSource> SimulatedInputSources::sourcesOf(std::optional<std::string_view> id) const {
    std::vector<InputSource> list;
    std::ranges::copy_if(sources_, std::back_inserter(list),
                         [&](const InputSource& source) { return !id || source.id == *id; });
    return list;
}

std::optional<InputSource> SimulatedInputSources::copyCurrentKeyboardInputSource() const {
    const auto current = sourcesOf(currentID_);
    if (current.empty()) return std::nullopt;
    return current.front();
}

std::optional<InputSource> SimulatedInputSources::copyCurrentKeyboardLayoutInputSource() const {
    journal_.add("keep ", currentID_);
    return copyCurrentKeyboardInputSource();
}

bool SimulatedInputSources::selectInputSource(const InputSource& source) {
    const bool isRefused = refusesSelections || !source.isSelectCapable || sourcesOf(source.id).empty();
    journal_.add("select ", source.id, isRefused ? ", refused" : "");
    if (isRefused) return false;
    selectFromOutside(source.id);
    return true;
}

std::string SimulatedInputSources::localizedName(const InputSource& source) const {
    const auto name = names.find(source.id);
    return name == names.end() ? source.id : name->second;
}

ImageRef SimulatedInputSources::iconOfReference(const InputSource& source) const {
    const auto icon = icons.find(source.id);
    return icon == icons.end() ? nullptr : icon->second;
}

void SimulatedInputSources::enable(InputSource source) {
    sources_.push_back(std::move(source));
    if (currentID_.empty()) currentID_ = sources_.back().id;
}

void SimulatedInputSources::disable(std::string_view id) {
    std::erase_if(sources_, [&](const InputSource& source) { return source.id == id; });
    if (currentID_ == id) selectFromOutside(sources_.empty() ? std::string_view() : sources_.front().id);
}

void SimulatedInputSources::selectFromOutside(std::string_view id) {
    if (currentID_ == id) return;
    currentID_ = id;
    notifications_.postFromOutside({std::string(selectedKeyboardInputSourceChangedNotification), {}});
}

} // namespace quorvane
