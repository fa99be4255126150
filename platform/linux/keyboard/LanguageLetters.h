#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// What stands on the icon of a layout or an input method for its language: the first two letters of the
/// language's code, in capitals. Empty for an empty code.
std::string languageLetters(std::string_view code);

} // namespace quorvane
