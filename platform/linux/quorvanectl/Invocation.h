#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// What the tool was asked for on its command line.
struct Invocation {
    std::string command;
    std::vector<std::string> arguments; ///< Behind it.
    bool wantsJson = false;
    std::string file; ///< Of `export` and `import`; "-": standard output or input.

    /// None for what is no command. Options may stand anywhere.
    static std::optional<Invocation> of(std::vector<std::string> arguments);
};

extern const char* const toolUsage;

} // namespace quorvane
