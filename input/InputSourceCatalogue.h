#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Image.h"
#include "platform/TextInputSources.h"

namespace quorvane {

struct InputSourceInfo {
    std::string id;
    std::string inputName;

    bool operator==(const InputSourceInfo&) const = default;
};

/// Those that a rule may name: the selectable keyboard ones.
std::vector<InputSourceInfo> selectableSources(const TextInputSources& inputSources);

/// The input sources that a rule may name: the selectable keyboard ones, as they were when it was built.
struct InputSourceCatalogue {
    std::vector<InputSourceInfo> arrOfInputInfo;

    /// "-", which stands for no input source, and then the name of each source: a menu's titles.
    std::vector<std::string> arrOfInputName;

    /// The icons that could be loaded. A source without one leaves no gap, so the icons behind it stand one
    /// place earlier than their sources.
    std::vector<ImageRef> arrOfInputIcon;

    static InputSourceCatalogue build(const TextInputSources& inputSources, const Images& images);

    /// Null past the end.
    ImageRef iconAt(std::size_t index) const;

    /// None when no source has that id.
    std::optional<std::string> nameOfInput(std::string_view id) const;
};

} // namespace quorvane
