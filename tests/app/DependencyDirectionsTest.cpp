#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include <gtest/gtest.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// Which project folders the files of a folder may include, besides their own.
const std::map<std::string, std::set<std::string>> allowedFolders = {
    {"platform", {}},
    {"settings", {"platform"}},
    {"input", {"platform", "settings"}},
    {"indicator", {"platform", "settings", "input"}},
    {"switching", {"platform", "settings", "input", "indicator"}},
    {"shortcuts", {"platform", "settings", "input"}},
    {"preferences", {"platform", "settings", "input", "switching", "shortcuts", "indicator"}},
    {"app", {"platform", "settings", "input", "switching", "shortcuts", "indicator", "preferences"}},
    {"platform/simulated", {"platform"}},
};

/// What is wrong with an include; empty when nothing is.
std::string fault(const std::string& folder, const std::string& line) {
    static const std::regex include(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::smatch match;
    if (!std::regex_search(line, match, include)) return {};
    const std::string name = match[2];
    // Only the standard library's headers have neither a folder, nor an ending, nor a capital letter.
    static const std::regex standard("[a-z_]+");
    if (match[1] == "<") return std::regex_match(name, standard) ? "" : "not the standard library";
    const auto included = fs::path(name).parent_path().string();
    return included == folder || allowedFolders.at(folder).contains(included) ? "" : "wrong direction";
}

TEST(DependencyDirections, PointOnlyDownwards) {
    const fs::path root(QUORVANE_SOURCE_DIR);
    int checked = 0;
    for (const auto& [folder, allowed] : allowedFolders) {
        for (const auto& entry : fs::directory_iterator(root / folder)) {
            if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
            ++checked;
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);)
                EXPECT_EQ(fault(folder, line), "") << entry.path().filename() << ": " << line;
        }
    }
    EXPECT_GT(checked, 50);
    for (const auto* include :
         {"\"app/AppDelegate.h\"", "\"platform/simulated/SimulatedDesktop.h\"", "<xcb/xcb.h>", "<QString>"})
        EXPECT_NE(fault("input", std::string("#include ") + include), "") << include;
}

} // namespace
} // namespace quorvane
