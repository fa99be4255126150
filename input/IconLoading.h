#pragma once

#include "platform/Image.h"
#include "platform/TextInputSources.h"

namespace quorvane {

/// The icon of an input source: the one the desktop draws for it, else the picture at its image URL, else the
/// ".tiff" beside that. Null when none of them loads.
ImageRef loadIcon(const InputSource& source, const TextInputSources& inputSources, const Images& images);

} // namespace quorvane
