#pragma once

#include <string_view>

namespace quorvane {

/// Whether the text is UTF-8 and has only characters that XML 1.0 knows: of the control characters, that is
/// tabs and line ends.
bool isXmlText(std::string_view text);

} // namespace quorvane
