// Everything from a terminal: what the program does and why, and all that can be set.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <unistd.h>

#include "control/CommandText.h"
#include "platform/linux/UnixSignals.h"
#include "platform/linux/quorvanectl/AgentLink.h"
#include "platform/linux/quorvanectl/DefaultsCommand.h"
#include "platform/linux/quorvanectl/Invocation.h"
#include "platform/linux/quorvanectl/Json.h"
#include "platform/linux/quorvanectl/SymptomsOfSession.h"
#include "platform/linux/quorvanectl/WithoutAgent.h"

namespace quorvane {
namespace {

constexpr int misuse = static_cast<int>(CommandStatus::misused);

std::string timeText(double secondsSince1970) {
    const auto time = static_cast<std::time_t>(secondsSince1970);
    std::tm local{};
    std::array<char, 32> text{};
    localtime_r(&time, &local);
    std::strftime(text.data(), text.size(), "%H:%M:%S", &local);
    return text.data();
}

TextStyle style() {
    return {.isAligned = ::isatty(STDOUT_FILENO) != 0, .timeText = timeText};
}

void print(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

int fail(const std::string& reason, CommandStatus status = CommandStatus::failed) {
    std::fprintf(stderr, "quorvanectl: %s\n", reason.c_str());
    return static_cast<int>(status);
}

int show(const Invocation& invocation, const CommandResult& result) {
    if (result.status != CommandStatus::done) {
        if (invocation.wantsJson) print(jsonOf(result.document));
        auto text = textOfResult(invocation.command, result, style());
        text.pop_back();
        return fail(text, result.status);
    }
    const bool isQuiet = invocation.command == "pause" || invocation.command == "resume";
    print(invocation.wantsJson && !isQuiet ? jsonOf(result.document)
                                           : textOfResult(invocation.command, result, style()));
    return 0;
}

/// The text of a file, or of standard input.
std::optional<std::string> contentsOf(const std::string& file) {
    std::ostringstream text;
    if (file == "-") {
        std::array<char, 4096> piece{};
        while (const auto count = std::fread(piece.data(), 1, piece.size(), stdin))
            text.write(piece.data(), static_cast<std::streamsize>(count));
        return text.str();
    }
    const std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    text << stream.rdbuf();
    return text.str();
}

int save(const PropertyList& document, const std::string& file) {
    if (file == "-") {
        print(jsonOf(document));
        return 0;
    }
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << jsonOf(document) << std::flush;
    return stream ? 0 : fail(file + " cannot be written: " + std::strerror(errno));
}

int watch(AgentLink& agent, bool wantsJson) {
    if (!agent.run("status", {})) return fail("Quorvane does not run", CommandStatus::noAgent);
    const UnixSignals signals([] { QCoreApplication::quit(); });
    agent.watch([wantsJson](const PropertyList& decision) {
        print(wantsJson ? jsonOf(decision, JsonForm::oneLine) : textOfDecision(decision, style()));
    });
    return QCoreApplication::exec();
}

int doctor(AgentLink& agent, bool wantsJson) {
    const auto findings = diagnose(symptomsOfSession(agent));
    PropertyList::Array list;
    for (const auto& [problem, remedy] : findings)
        list.emplace_back(PropertyList::Dictionary{{"problem", problem}, {"remedy", remedy}});
    if (wantsJson) {
        print(jsonOf(list));
    } else {
        for (const auto& [problem, remedy] : findings)
            std::printf("%s: %s\n", problem.c_str(), remedy.c_str());
        if (findings.empty()) print("nothing is missing or odd\n");
    }
    return findings.empty() ? 0 : static_cast<int>(CommandStatus::failed);
}

int run(const Invocation& invocation) {
    AgentLink agent;
    if (invocation.command == "watch") return watch(agent, invocation.wantsJson);
    if (invocation.command == "doctor") return doctor(agent, invocation.wantsJson);
    CommandRequest request{invocation.arguments, {}};
    if (invocation.command == "import") {
        const auto text = contentsOf(invocation.file);
        if (!text) return fail(invocation.file + " cannot be read: " + std::strerror(errno));
        std::string error;
        const auto document = readJson(*text, error);
        if (!document) return fail(invocation.file + ", " + error);
        request.document = *document;
    }
    auto result = agent.run(invocation.command, request);
    if (!result) result = runWithoutAgent(invocation.command, request);
    if (!result) return fail("Quorvane does not run", CommandStatus::noAgent);
    if (invocation.command == "export" && result->status == CommandStatus::done)
        return save(result->document, invocation.file);
    return show(invocation, *result);
}

int runTool(int count, char** values) {
    std::vector<std::string> arguments(values + 1, values + count);
    if (!arguments.empty() && (arguments[0] == "--help" || arguments[0] == "-h" || arguments[0] == "help")) {
        print(toolUsage);
        return 0;
    }
    if (!arguments.empty() && arguments[0] == "--version") {
        print("quorvanectl " QUORVANE_VERSION "\n");
        return 0;
    }
    if (!arguments.empty() && arguments[0] == "defaults") {
        arguments.erase(arguments.begin());
        if (const auto status = runDefaults(arguments)) return *status;
        std::fputs(defaultsUsage, stderr);
        return misuse;
    }
    const auto invocation = Invocation::of(std::move(arguments));
    if (!invocation) return fail("no such command; quorvanectl --help", CommandStatus::misused);
    const QCoreApplication application(count, values);
    return run(*invocation);
}

} // namespace
} // namespace quorvane

int main(int count, char** arguments) {
    const int status = quorvane::runTool(count, arguments);
    std::fflush(nullptr);
    // At an ordinary end Qt takes its types apart while its thread for the bus still uses them.
    std::_Exit(status);
}
