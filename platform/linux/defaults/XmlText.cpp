#include "platform/linux/defaults/XmlText.h"

#include <bit>
#include <cstdint>

namespace quorvane {
namespace {

bool isXmlCharacter(std::uint32_t character) {
    if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return !isSurrogate && character != 0xFFFE && character != 0xFFFF && character <= 0x10FFFF;
}

/// Takes one UTF-8 sequence off the text; false when there is none, or a longer one than needed.
bool takeCharacter(std::string_view& text, std::uint32_t& character) {
    const auto first = static_cast<std::uint8_t>(text.front());
    const auto length = first < 0x80 ? 1U : static_cast<unsigned>(std::countl_one(first));
    if (length > 4 || (first >= 0x80 && length < 2) || text.size() < length) return false;
    character = length == 1 ? first : first & (0x7FU >> length);
    for (const char next : text.substr(1, length - 1)) {
        const auto byte = static_cast<std::uint8_t>(next);
        if (byte >> 6 != 2) return false;
        character = character << 6 | (byte & 0x3FU);
    }
    text.remove_prefix(length);
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return character >= smallest[length];
}

} // namespace

bool isXmlText(std::string_view text) {
    while (!text.empty()) {
        std::uint32_t character = 0;
        if (!takeCharacter(text, character) || !isXmlCharacter(character)) return false;
    }
    return true;
}

} // namespace quorvane
