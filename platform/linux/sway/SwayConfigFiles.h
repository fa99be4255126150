#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quorvane {

/// What stands in the files that an `include` of sway's configuration means: shell words, with `~`, variables
/// and wildcards, from the configuration's folder. What cannot be read is left out; no command is run.
std::vector<std::string> includedSwayFiles(const std::string& pattern, const std::filesystem::path& folder);

} // namespace quorvane
