#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include <gtest/gtest.h>

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// Which project folders the files of a folder may include, besides their own. A backend, all its folders
/// taken together, knows the ports, what is stored, the recorder's behaviour, and the commands it passes on.
const std::map<std::string, std::set<std::string>> allowedFolders = {
    {"platform", {}},
    {"settings", {"platform"}},
    {"input", {"platform", "settings"}},
    {"indicator", {"platform", "settings", "input"}},
    {"switching", {"platform", "settings", "input", "indicator"}},
    {"shortcuts", {"platform", "settings", "input"}},
    {"preferences", {"platform", "settings", "input", "switching", "shortcuts", "indicator"}},
    {"control", {"platform", "settings", "input", "switching", "shortcuts"}},
    {"app",
     {"platform", "settings", "input", "switching", "shortcuts", "indicator", "preferences", "control"}},
    {"platform/simulated", {"platform"}},
    {"platform/linux", {"platform", "settings", "shortcuts", "control"}},
    {"platform/macos", {"platform", "settings", "shortcuts", "control"}},
};

/// The files that start a desktop's program: they alone know its hub.
const std::set<std::string> startsTheProgram = {"platform/linux/main.cpp",
                                                "platform/macos/shell/AppDelegate.mm"};

/// Programs beside the product: they stand on a virtual desktop.
const std::string demonstrations = "platform/linux/demo";

bool isBackend(const std::string& folder) {
    return folder == "platform/linux" || folder == "platform/macos";
}

bool isWithin(const std::string& folder, const std::string& path) {
    return path == folder || path.starts_with(folder + "/");
}

/// What is wrong with an include; empty when nothing is.
std::string fault(const std::string& folder, const std::string& line) {
    static const std::regex include(R"(^\s*#\s*(include|import)\s*([<"])([^>"]+)[>"])");
    std::smatch match;
    if (!std::regex_search(line, match, include)) return {};
    const std::string name = match[3];
    if (match[2] == "<") {
        // Only the standard library's headers have neither a folder, nor an ending, nor a capital letter.
        static const std::regex standard("[a-z_]+");
        return isBackend(folder) || std::regex_match(name, standard) ? "" : "not the standard library";
    }
    const auto included = fs::path(name).parent_path().string();
    if (isBackend(folder) ? included.empty() || isWithin(folder, included) : included == folder) return {};
    return allowedFolders.at(folder).contains(included) ? "" : "wrong direction";
}

TEST(DependencyDirections, PointOnlyDownwards) {
    const fs::path root(QUORVANE_SOURCE_DIR);
    const std::set<fs::path> endings{".h", ".cpp", ".mm"};
    std::map<std::string, int> checked;
    for (const auto& [folder, allowed] : allowedFolders) {
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            const auto path = entry.path().lexically_relative(root);
            const bool isOwn = isBackend(folder) || path.parent_path() == folder;
            const bool isExempt = startsTheProgram.contains(path) || path.parent_path() == demonstrations;
            if (!isOwn || !endings.contains(path.extension()) || isExempt) continue;
            ++checked[folder];
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);)
                EXPECT_EQ(fault(folder, line), "") << path << ": " << line;
        }
        EXPECT_GT(checked[folder], 3) << folder;
    }
    for (const auto* include :
         {"\"app/AppDelegate.h\"", "\"platform/simulated/SimulatedDesktop.h\"", "<xcb/xcb.h>", "<QString>"})
        EXPECT_NE(fault("input", std::string("#include ") + include), "") << include;
    EXPECT_NE(fault("platform/linux", "#include \"platform/macos/CFValues.h\""), "");
}

/// Each session of a Linux desktop can be read alone.
TEST(DependencyDirections, SessionsDoNotKnowEachOther) {
    const fs::path root(QUORVANE_SOURCE_DIR);
    const std::set<std::string> sessions{"x11", "sway", "kwin", "gnome"};
    const std::regex include(R"(#include "platform/linux/(\w+)/)");
    for (const auto& session : sessions) {
        int checked = 0;
        for (const auto& entry : fs::recursive_directory_iterator(root / "platform/linux" / session)) {
            if (!entry.is_regular_file()) continue;
            ++checked;
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);) {
                std::smatch match;
                if (!std::regex_search(line, match, include)) continue;
                EXPECT_TRUE(match[1] == session || !sessions.contains(match[1]))
                    << entry.path() << ": " << line;
            }
        }
        EXPECT_GT(checked, 3) << session;
    }
}

} // namespace
} // namespace quorvane
