#include "platform/linux/desktop-files/DesktopEntry.h"

#include <algorithm>
#include <utility>

namespace quorvane {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        switch (value[++i]) {
        case 's':
            text += ' ';
            break;
        case 'n':
            text += '\n';
            break;
        case 't':
            text += '\t';
            break;
        case 'r':
            text += '\r';
            break;
        case '\\':
            text += '\\';
            break;
        default:
            (text += '\\') += value[i];
        }
    }
    return text;
}

/// The next argument of a command line, unquoted; shortens the command line.
std::string nextArgument(std::string_view& command) {
    command = trimmed(command);
    std::string argument;
    bool quoted = false;
    std::size_t i = 0;
    for (; i < command.size() && (quoted || command[i] != ' '); ++i) {
        if (command[i] == '"') {
            quoted = !quoted;
        } else {
            if (quoted && command[i] == '\\' && i + 1 < command.size()) ++i;
            argument += command[i];
        }
    }
    command.remove_prefix(i);
    return argument;
}

/// The program a command starts. A leading `env NAME=value`, which packagers like, is not the program.
std::string programOf(std::string_view command) {
    std::string argument;
    bool afterEnv = false;
    do {
        argument = nextArgument(command);
        argument.erase(0, argument.rfind('/') + 1);
        if (argument == "env")
            afterEnv = true;
        else if (!afterEnv || argument.find('=') == std::string::npos)
            return argument;
    } while (!argument.empty());
    return {};
}

std::vector<std::string> listOf(std::string_view value) {
    std::vector<std::string> elements;
    while (!value.empty()) {
        const auto end = std::min(value.find(';'), value.size());
        if (end > 0) elements.emplace_back(value.substr(0, end));
        value.remove_prefix(std::min(end + 1, value.size()));
    }
    return elements;
}

/// The lines of the group [Desktop Entry], read one by one.
class Reader {
public:
    explicit Reader(const std::vector<std::string>& suffixes)
        : suffixes_(suffixes)
        , rank_(suffixes.size() + 1) {}

    void read(std::string_view line) {
        if (line.empty() || line.front() == '#') return;
        if (line.front() == '[') {
            inGroup_ = line == "[Desktop Entry]";
            return;
        }
        const auto equals = line.find('=');
        if (!inGroup_ || equals == std::string_view::npos) return;
        take(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    }

    std::optional<DesktopEntry> result() {
        if (!isApplication_ || entry_.name.empty()) return std::nullopt;
        return std::move(entry_);
    }

private:
    void take(std::string_view key, std::string_view value) {
        if (key.starts_with("Name"))
            takeName(key.substr(4), value);
        else if (key == "Type")
            isApplication_ = value == "Application";
        else if (key == "Icon")
            entry_.icon = unescaped(value);
        else if (key == "Exec")
            entry_.program = programOf(unescaped(value));
        else if (key == "StartupWMClass")
            entry_.startupWmClass = unescaped(value);
        else if (key == "Hidden")
            entry_.isHidden = value == "true";
        else if (key == "Terminal")
            entry_.runsInTerminal = value == "true";
        else if (key == "NoDisplay")
            entry_.noDisplay = value == "true";
        else if (key == "TryExec")
            entry_.tryExec = unescaped(value);
        else if (key == "OnlyShowIn")
            entry_.onlyShowIn = listOf(value);
        else if (key == "NotShowIn")
            entry_.notShowIn = listOf(value);
    }

    void takeName(std::string_view bracketed, std::string_view value) {
        std::size_t rank = suffixes_.size();
        if (!bracketed.empty()) {
            if (bracketed.size() < 3 || bracketed.front() != '[' || bracketed.back() != ']') return;
            const auto locale = bracketed.substr(1, bracketed.size() - 2);
            rank = static_cast<std::size_t>(std::ranges::find(suffixes_, locale) - suffixes_.begin());
            if (rank == suffixes_.size()) return;
        }
        if (rank >= rank_) return;
        rank_ = rank;
        entry_.name = unescaped(value);
    }

    const std::vector<std::string>& suffixes_;
    std::size_t rank_; ///< How well the name found so far fits the user's language; less is better.
    bool inGroup_ = false;
    bool isApplication_ = false;
    DesktopEntry entry_;
};

} // namespace

std::vector<std::string> localeSuffixes(std::string_view locale) {
    const auto at = std::min(locale.find('@'), locale.size());
    const std::string modifier(locale.substr(at));
    const std::string country(locale.substr(0, std::min(locale.find('.'), at)));
    const std::string language = country.substr(0, country.find('_'));
    if (language.empty() || language == "C" || language == "POSIX") return {};
    return {country + modifier, country, language + modifier, language};
}

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                              const std::vector<std::string>& suffixes) {
    Reader reader(suffixes);
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        reader.read(trimmed(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return reader.result();
}

} // namespace quorvane
