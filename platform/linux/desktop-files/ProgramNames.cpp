#include "platform/linux/desktop-files/ProgramNames.h"

#include <algorithm>
#include <array>

namespace quorvane {

bool isInterpreter(std::string_view program) {
    constexpr std::array names = {"bash", "dash", "electron", "flatpak", "gjs", "java", "mono",
                                  "node", "perl", "python",   "ruby",    "sh",  "wine"};
    return std::ranges::any_of(names, [&](std::string_view name) {
        if (!program.starts_with(name)) return false;
        return program.find_first_not_of("0123456789.-", name.size()) == std::string_view::npos;
    });
}

std::string nameOfApplication(std::string_view wmClass, std::string_view program) {
    return std::string(lower(wmClass) == lower(program) ? program : wmClass);
}

std::string lower(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

} // namespace quorvane
