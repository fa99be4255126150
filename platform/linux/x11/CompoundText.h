#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// COMPOUND_TEXT, the X server's old multilingual encoding (ISO 2022), as UTF-8. Bytes in a character set we
/// do not know are left out.
std::string fromCompoundText(std::string_view bytes);

} // namespace quorvane
