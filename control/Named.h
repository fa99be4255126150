#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// An application or an input source, as the program and as people know it.
struct Named {
    std::string id;
    std::string name;

    bool operator==(const Named&) const = default;
};

/// Which of them a text may mean: the one with this id; else those whose id or name it is, with or without
/// the capitals of English; else those whose id ends in it, like "kate" in "org.kde.kate" and "ru" in
/// "xkb:ru"; else those whose name begins with it. Several, where only the user can tell.
std::vector<Named> meantBy(std::string_view text, const std::vector<Named>& known);

/// "Russian (xkb:ru)"; the id alone where it is the name, too, or there is none.
std::string textOf(const Named& named);

} // namespace quorvane
