#include "platform/linux/sway/SwayBindings.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <optional>
#include <utility>

#include <xkbcommon/xkbcommon.h>

namespace quorvane {
namespace {

constexpr int deepestInclusion = 8; // Files may include themselves.

/// The blocks of which nothing is read: settings of devices and bars, and modes that the user has to enter.
const std::vector<std::string> otherBlock{"-"};

std::string small(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char letter) { return std::tolower(letter); });
    return text;
}

/// The words of a line; quotes keep several together.
std::vector<std::string> wordsOf(std::string_view line) {
    std::vector<std::string> words;
    bool isInWord = false;
    char quote = 0;
    for (const char letter : line) {
        const bool isSpace = std::isspace(static_cast<unsigned char>(letter)) != 0;
        if (quote == 0 && isSpace) {
            isInWord = false;
            continue;
        }
        if (!std::exchange(isInWord, true)) words.emplace_back();
        if (letter == quote)
            quote = 0;
        else if (quote == 0 && (letter == '"' || letter == '\''))
            quote = letter;
        else
            words.back() += letter;
    }
    return words;
}

/// None when it is not the name of a modifier.
std::optional<std::uint16_t> modifierNamed(const std::string& name) {
    static const std::map<std::string, unsigned> bits{
        {"shift", 1U << 0}, {"lock", 1U << 1}, {"ctrl", 1U << 2}, {"control", 1U << 2},
        {"alt", 1U << 3},   {"mod1", 1U << 3}, {"mod2", 1U << 4}, {"mod3", 1U << 5},
        {"super", 1U << 6}, {"mod4", 1U << 6}, {"mod5", 1U << 7}};
    const auto bit = bits.find(small(name));
    if (bit == bits.end()) return std::nullopt;
    return static_cast<std::uint16_t>(bit->second);
}

bool isGroup(const std::string& name) {
    return name.size() == 6 && small(name).starts_with("group");
}

/// None when it is not one key of the keyboard: a mouse button, or several keys.
std::optional<SwayBinding> bindingOf(const std::string& keys, bool isByCode) {
    SwayBinding binding;
    bool hasKey = false;
    for (std::size_t begin = 0; begin <= keys.size();) {
        const auto end = std::min(keys.find('+', begin), keys.size());
        const auto part = keys.substr(begin, end - begin);
        begin = end + 1;
        if (const auto modifier = modifierNamed(part)) {
            binding.modifiers |= *modifier;
        } else if (!isGroup(part)) {
            if (std::exchange(hasKey, true)) return std::nullopt;
            if (isByCode)
                std::from_chars(part.data(), part.data() + part.size(), binding.keycode);
            else
                binding.keysym =
                    xkb_keysym_to_lower(xkb_keysym_from_name(part.c_str(), XKB_KEYSYM_CASE_INSENSITIVE));
        }
    }
    if (binding.keycode == 0 && binding.keysym == 0) return std::nullopt;
    return binding;
}

} // namespace

void SwayBindings::read(std::string_view configuration) {
    std::string line;
    while (!configuration.empty()) {
        const auto end = std::min(configuration.find('\n'), configuration.size());
        line += configuration.substr(0, end);
        configuration.remove_prefix(std::min(end + 1, configuration.size()));
        if (line.ends_with('\\') && !configuration.empty())
            line.pop_back(); // It goes on in the next one.
        else
            readLine(std::exchange(line, {}));
    }
}

void SwayBindings::readLine(const std::string& line) {
    auto words = wordsOf(line);
    if (words.empty() || words.front().starts_with('#')) return;
    if (words.front() == "}") {
        if (!blocks_.empty()) blocks_.pop_back();
        return;
    }
    if (words.back() == "{") {
        words.pop_back();
        return openBlock(std::move(words));
    }
    if (!blocks_.empty()) words.insert(words.begin(), blocks_.back().begin(), blocks_.back().end());
    take(words);
}

/// Lines of `bindsym --locked {` are bindings; those of the default mode are like those outside of all.
void SwayBindings::openBlock(Words words) {
    const bool isInOther = !blocks_.empty() && blocks_.back() == otherBlock;
    const auto kind = words.empty() || isInOther ? std::string() : words.front();
    if (kind == "bindsym" || kind == "bindcode")
        blocks_.push_back(std::move(words));
    else if (kind == "mode" && words.back() == "default")
        blocks_.emplace_back();
    else
        blocks_.push_back(otherBlock);
}

void SwayBindings::take(const Words& words) {
    const auto& command = words.front();
    if (command == "set")
        setVariable(words);
    else if (command == "mode" && words.size() > 3 && words[1] == "default")
        take({words.begin() + 2, words.end()});
    else if (command.ends_with("bindsym") || command.ends_with("bindcode"))
        setBinding(words);
    if (command != "include" || words.size() < 2 || depth_ == deepestInclusion) return;
    ++depth_;
    for (const auto& text : included_(withoutVariables(words[1])))
        read(text);
    --depth_;
}

void SwayBindings::setVariable(const Words& words) {
    if (words.size() < 3) return;
    auto value = words[2];
    for (std::size_t word = 3; word < words.size(); ++word)
        value += ' ' + words[word];
    variables_[words[1]] = withoutVariables(value);
}

void SwayBindings::setBinding(const Words& words) {
    const auto keys = std::find_if(words.begin() + 1, words.end(),
                                   [](const std::string& word) { return !word.starts_with("--"); });
    if (keys == words.end()) return;
    const auto binding = bindingOf(withoutVariables(*keys), words.front().ends_with("bindcode"));
    if (!binding) return;
    std::erase(bindings_, *binding);
    if (words.front().starts_with("bind")) bindings_.push_back(*binding);
}

/// Of two variables one of which begins like the other, the longer one is meant.
std::string SwayBindings::withoutVariables(std::string text) const {
    for (std::size_t place = text.find('$'); place != std::string::npos; place = text.find('$', place)) {
        const auto longest = std::find_if(variables_.rbegin(), variables_.rend(), [&](const auto& variable) {
            return text.compare(place, variable.first.size(), variable.first) == 0;
        });
        if (longest == variables_.rend()) {
            ++place;
            continue;
        }
        text.replace(place, longest->first.size(), longest->second);
        place += longest->second.size();
    }
    return text;
}

} // namespace quorvane
