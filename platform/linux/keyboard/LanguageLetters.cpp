#include "platform/linux/keyboard/LanguageLetters.h"

#include <algorithm>
#include <cctype>

namespace quorvane {

std::string languageLetters(std::string_view code) {
    std::string letters(code.substr(0, 2));
    std::ranges::transform(letters, letters.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return letters;
}

} // namespace quorvane
