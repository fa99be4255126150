#include "input/IconLoading.h"

#include <string>

namespace quorvane {
namespace {

/// A URL's path, escapes and all, without what may stand before and behind it.
std::string_view pathOf(std::string_view url) {
    constexpr std::string_view schemeEnd = "://";
    if (const auto scheme = url.find(schemeEnd); scheme != std::string_view::npos) {
        const auto path = url.find('/', scheme + schemeEnd.size());
        url = path == std::string_view::npos ? std::string_view() : url.substr(path);
    }
    return url.substr(0, url.find_first_of("?#"));
}

/// The file at the same path with ".tiff" for its extension, which may be missing.
std::string tiffVariant(std::string_view url) {
    const auto path = pathOf(url);
    const auto nameStart = path.rfind('/') + 1; // 0 when there is no slash
    const auto dot = path.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > nameStart;
    return std::string("file://").append(hasExtension ? path.substr(0, dot) : path).append(".tiff");
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
