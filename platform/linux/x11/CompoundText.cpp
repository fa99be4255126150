#include "platform/linux/x11/CompoundText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include <iconv.h>

namespace quorvane {

namespace {

/// What an escape sequence (without its ESC) makes of the bytes after it. The sets of two bytes a character
/// have their high bits cleared when they are selected for the left half, so these must be set for the
/// encoding.
struct CharacterSet {
    std::string_view escape;
    const char* encoding;
    bool isLeftHalf = false;
};

constexpr std::array characterSets = {
    CharacterSet{"(B", "ISO-8859-1"},    CharacterSet{"(J", "ISO-8859-1"},
    CharacterSet{"-A", "ISO-8859-1"},    CharacterSet{"-B", "ISO-8859-2"},
    CharacterSet{"-C", "ISO-8859-3"},    CharacterSet{"-D", "ISO-8859-4"},
    CharacterSet{"-L", "ISO-8859-5"},    CharacterSet{"-G", "ISO-8859-6"},
    CharacterSet{"-F", "ISO-8859-7"},    CharacterSet{"-H", "ISO-8859-8"},
    CharacterSet{"-M", "ISO-8859-9"},    CharacterSet{"-V", "ISO-8859-10"},
    CharacterSet{"-Y", "ISO-8859-13"},   CharacterSet{"-_", "ISO-8859-14"},
    CharacterSet{"-b", "ISO-8859-15"},   CharacterSet{"-f", "ISO-8859-16"},
    CharacterSet{"%G", "UTF-8"},         CharacterSet{"%@", "ISO-8859-1"},
    CharacterSet{"$(A", "EUC-CN", true}, CharacterSet{"$(B", "EUC-JP", true},
    CharacterSet{"$(C", "EUC-KR", true}, CharacterSet{"$)A", "EUC-CN"},
    CharacterSet{"$)B", "EUC-JP"},       CharacterSet{"$)C", "EUC-KR"},
};

std::string converted(std::string bytes, const char* encoding) {
    const auto converter = iconv_open("UTF-8", encoding);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface's own error value
    if (converter == iconv_t(-1)) return {};
    std::string utf8(bytes.size() * 4, '\0');
    char* in = bytes.data();
    char* out = utf8.data();
    std::size_t inLeft = bytes.size();
    std::size_t outLeft = utf8.size();
    while (inLeft > 0 && iconv(converter, &in, &inLeft, &out, &outLeft) == std::size_t(-1)) {
        if (errno != EILSEQ) break;
        ++in; // A byte that means nothing in this set.
        --inLeft;
    }
    iconv_close(converter);
    utf8.resize(utf8.size() - outLeft);
    return utf8;
}

std::string decoded(std::string_view bytes, const CharacterSet* set) {
    if (!set || bytes.empty()) return {};
    std::string encoded(bytes);
    if (set->isLeftHalf) {
        for (char& byte : encoded)
            byte = static_cast<char>(byte | 0x80);
    }
    return converted(std::move(encoded), set->encoding);
}

/// The length of the escape sequence (without its ESC): intermediate bytes, then one final byte.
std::size_t escapeLength(std::string_view afterEscape) {
    const auto isIntermediate = [](char byte) { return byte >= 0x20 && byte <= 0x2f; };
    const auto final = std::find_if_not(afterEscape.begin(), afterEscape.end(), isIntermediate);
    return std::min(static_cast<std::size_t>(final - afterEscape.begin()) + 1, afterEscape.size());
}

} // namespace

std::string fromCompoundText(std::string_view bytes) {
    std::string utf8;
    const auto* set = characterSets.data();
    while (true) {
        const auto escape = bytes.find('\x1b');
        utf8 += decoded(bytes.substr(0, escape), set);
        if (escape == std::string_view::npos) return utf8;
        bytes.remove_prefix(escape + 1);
        const auto sequence = bytes.substr(0, escapeLength(bytes));
        const auto known = std::find_if(characterSets.begin(), characterSets.end(),
                                        [&](const CharacterSet& each) { return each.escape == sequence; });
        set = known == characterSets.end() ? nullptr : &*known;
        bytes.remove_prefix(sequence.size());
    }
}

} // namespace quorvane
