#include "platform/linux/quorvanectl/Invocation.h"

#include <algorithm>
#include <map>
#include <string_view>

namespace quorvane {
namespace {

struct Count {
    std::size_t least, most; ///< Of the arguments that are no options.
};

const std::map<std::string_view, Count> commands = {
    {"status", {0, 0}}, {"why", {0, 1}},    {"watch", {0, 0}},   {"apps", {0, 0}},     {"sources", {0, 0}},
    {"rules", {0, 0}},  {"rule", {1, 2}},   {"default", {0, 1}}, {"shortcut", {1, 2}}, {"select", {1, 1}},
    {"export", {0, 1}}, {"import", {1, 1}}, {"pause", {0, 1}},   {"resume", {0, 0}},   {"doctor", {0, 0}},
};

} // namespace

const char* const toolUsage =
    "usage: quorvanectl [--json] COMMAND\n"
    "\n"
    "  status                        who is in front, which source it is to have, and why\n"
    "  why [APPLICATION]             the same in a sentence, for any application\n"
    "  watch                         each decision as it is made\n"
    "  apps, sources, rules          what there is\n"
    "  rule APPLICATION [SOURCE]     shows or sets the source of an application; none: removes it\n"
    "  default [SOURCE]              the source of applications without a rule; none: removes it\n"
    "  shortcut SOURCE [KEYS]        a source's hot key, like Ctrl+Alt+R; none: removes it\n"
    "  select SOURCE                 selects it now\n"
    "  pause [DURATION], resume      no automatic switch meanwhile: 90s, 10m, 2h\n"
    "  export [FILE]                 everything that is set, as JSON\n"
    "  import FILE [--dry-run] [--replace]\n"
    "  doctor                        what is missing or odd on this desktop\n"
    "  defaults …                    the settings files as they are\n"
    "\n"
    "Applications and sources go by their identifiers or by their names. See quorvanectl(1).\n";

std::optional<Invocation> Invocation::of(std::vector<std::string> arguments) {
    Invocation invocation;
    invocation.wantsJson = std::erase(arguments, "--json") > 0;
    if (arguments.empty()) return std::nullopt;
    invocation.command = arguments.front();
    arguments.erase(arguments.begin());
    const auto command = commands.find(invocation.command);
    if (command == commands.end()) return std::nullopt;
    const auto isOption = [](const std::string& argument) { return argument.starts_with("--"); };
    const auto options = static_cast<std::size_t>(std::ranges::count_if(arguments, isOption));
    const auto names = arguments.size() - options;
    if (options > 0 && invocation.command != "import") return std::nullopt;
    if (names < command->second.least || names > command->second.most) return std::nullopt;
    if (invocation.command == "export" || invocation.command == "import") {
        const auto file = std::ranges::find_if_not(arguments, isOption);
        invocation.file = file == arguments.end() ? "-" : *file;
        if (file != arguments.end()) arguments.erase(file);
    }
    invocation.arguments = std::move(arguments);
    return invocation;
}

} // namespace quorvane
