#include "control/Named.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace quorvane {
namespace {

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool isAlike(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, lower, lower);
}

std::string_view lastPart(std::string_view id) {
    return id.substr(id.find_last_of(".:") + 1);
}

} // namespace

std::vector<Named> meantBy(std::string_view text, const std::vector<Named>& known) {
    const std::function<bool(const Named&)> ways[] = {
        [&](const Named& each) { return each.id == text; },
        [&](const Named& each) { return isAlike(each.id, text) || isAlike(each.name, text); },
        [&](const Named& each) { return isAlike(lastPart(each.id), text); },
        [&](const Named& each) { return isAlike(std::string_view(each.name).substr(0, text.size()), text); },
    };
    std::vector<Named> meant;
    if (text.empty()) return meant;
    for (const auto& way : ways) {
        std::ranges::copy_if(known, std::back_inserter(meant), way);
        if (!meant.empty()) break;
    }
    return meant;
}

std::string textOf(const Named& named) {
    return named.name.empty() || named.name == named.id ? named.id : named.name + " (" + named.id + ")";
}

} // namespace quorvane
