#include "input/IconLoading.h"

#include <string>

namespace quorvane {
namespace {

/// The same place with ".tiff" for the file's extension, which may be missing.
std::string tiffVariant(std::string_view url) {
    const auto nameStart = url.rfind('/') + 1; // 0 when there is no slash
    const auto dot = url.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > nameStart;
    return std::string(hasExtension ? url.substr(0, dot) : url) + ".tiff";
}

} // namespace

ImageRef loadIcon(const InputSource& source, const TextInputSources& inputSources, const Images& images) {
    // A source that has a reference is asked for nothing else, even when the reference yields no picture.
    if (source.hasIconReference) return inputSources.iconOfReference(source);
    if (source.iconImageURL.empty()) return nullptr;
    if (auto image = images.imageWithContentsOfURL(source.iconImageURL)) return image;
    return images.imageWithContentsOfURL(tiffVariant(source.iconImageURL));
}

} // namespace quorvane
