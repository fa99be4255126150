#include "input/InputSourceCatalogue.h"

#include <algorithm>
#include <utility>

#include "input/IconLoading.h"

namespace quorvane {
namespace {

bool isSelectable(const InputSource& source) {
    return source.category == InputSourceCategory::keyboard && source.isSelectCapable;
}

} // namespace

std::vector<InputSourceInfo> selectableSources(const TextInputSources& inputSources) {
    std::vector<InputSourceInfo> sources;
    for (const auto& source : inputSources.createInputSourceList())
        if (isSelectable(source)) sources.push_back({source.id, inputSources.localizedName(source)});
    return sources;
}

InputSourceCatalogue InputSourceCatalogue::build(const TextInputSources& inputSources, const Images& images) {
    InputSourceCatalogue catalogue;
    catalogue.arrOfInputName.emplace_back("-");
    for (const auto& source : inputSources.createInputSourceList()) {
        if (!isSelectable(source)) continue;
        const auto inputName = inputSources.localizedName(source);
        catalogue.arrOfInputInfo.push_back({source.id, inputName});
        catalogue.arrOfInputName.push_back(inputName);
        if (auto icon = loadIcon(source, inputSources, images))
            catalogue.arrOfInputIcon.push_back(std::move(icon));
    }
    return catalogue;
}

ImageRef InputSourceCatalogue::iconAt(std::size_t index) const {
    return index < arrOfInputIcon.size() ? arrOfInputIcon[index] : nullptr;
}

std::optional<std::string> InputSourceCatalogue::nameOfInput(std::string_view id) const {
    const auto found = std::ranges::find(arrOfInputInfo, id, &InputSourceInfo::id);
    if (found == arrOfInputInfo.end()) return std::nullopt;
    return found->inputName;
}

} // namespace quorvane
