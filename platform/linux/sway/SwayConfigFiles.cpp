#include "platform/linux/sway/SwayConfigFiles.h"

#include <utility>

#include <wordexp.h>

#include "platform/linux/files/ReadFile.h"

namespace quorvane {
namespace {

constexpr std::size_t mostBytes = 1U << 20U;

} // namespace

std::vector<std::string> includedSwayFiles(const std::string& pattern, const std::filesystem::path& folder) {
    std::vector<std::string> texts;
    wordexp_t words{};
    const auto first = pattern.substr(0, 1);
    const bool isAbsolute = first == "/" || first == "~" || first == "$";
    const auto fromFolder = isAbsolute ? pattern : folder.string() + '/' + pattern;
    if (wordexp(fromFolder.c_str(), &words, WRDE_NOCMD) != 0) return texts;
    for (std::size_t word = 0; word < words.we_wordc; ++word) {
        auto file = readFile(words.we_wordv[word], mostBytes);
        if (!file.error) texts.push_back(std::move(file.bytes));
    }
    wordfree(&words);
    return texts;
}

} // namespace quorvane
