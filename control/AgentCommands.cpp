#include "control/AgentCommands.h"

#include <algorithm>
#include <set>
#include <utility>

#include "control/Duration.h"
#include "input/InputSourceCatalogue.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"
#include "shortcuts/InputHotKeys.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

const char* wordOf(InputReason reason) {
    switch (reason) {
    case InputReason::rule:
        return "rule";
    case InputReason::launchersRule:
        return "launcher's rule";
    case InputReason::defaultSource:
        return "default source";
    default:
        return "nothing applies";
    }
}

const char* wordOf(Decision::Outcome outcome) {
    using enum Decision::Outcome;
    switch (outcome) {
    case isCurrent:
        return "is current";
    case isPaused:
        return "paused";
    case companionAsked:
        return "companion asked";
    case switched:
        return "switched";
    default:
        return "nothing";
    }
}

} // namespace

AgentCommands::AgentCommands(Desktop& desktop, const DesktopReport& report, ControlledProgram program)
    : desktop_(desktop)
    , report_(report)
    , program_(std::move(program))
    , settingsCommands_(
          desktop.defaults, knownNames(),
          {.settingsChanged = [] {}, // The program hears of it by itself.
           .shortcutChanged =
               [this](const std::string& source) {
                   refreshHotKey(desktop_.defaults.standardUserDefaults(), program_.hotKeyCenter, source,
                                 program_.pressed);
               },
           .isShortcutRefused =
               [this](const std::string& source) { return program_.hotKeyCenter.isRefused(source); }})
    , decisions_(program_.decision.decided.connect([this] { tell(); })) {}

const std::map<std::string_view, AgentCommands::Command>& AgentCommands::commands() {
    using Agent = AgentCommands;
    using Settings = SettingsCommands;
    static const std::map<std::string_view, Command> all = {
        {"status", &Agent::status},
        {"why", &Agent::why},
        {"apps", &Agent::applications},
        {"sources", &Agent::sources},
        {"select", &Agent::select},
        {"pause", &Agent::pause},
        {"resume", &Agent::resume},
        {"rules", &Agent::settings<&Settings::rules>},
        {"rule", &Agent::settings<&Settings::rule>},
        {"default", &Agent::settings<&Settings::defaultSource>},
        {"shortcut", &Agent::settings<&Settings::shortcut>},
        {"export", &Agent::settings<&Settings::exportSettings>},
        {"import", &Agent::settings<&Settings::importSettings>},
    };
    return all;
}

CommandResult AgentCommands::run(std::string_view command, const CommandRequest& request) {
    const auto found = commands().find(command);
    if (found == commands().end()) return commandMisuse(std::string(command) + " is no command");
    return (this->*found->second)(request);
}

KnownNames AgentCommands::knownNames() const {
    return {.applications = [this] { return knownApplications(); },
            .isProgram =
                [this](std::string_view name) {
                    const auto path = desktop_.applicationBundles.absolutePathForAppBundle(name);
                    return path && path->find('/') != std::string::npos;
                },
            .sources = [this] { return knownSources(); },
            .isSourceID = [](std::string_view) { return false; }};
}

std::vector<Named> AgentCommands::knownApplications() const {
    std::vector<Named> known;
    std::set<std::string, std::less<>> ids;
    const auto add = [&](const std::string& id, const std::string& name) {
        if (ids.insert(id).second) known.push_back({id, name});
    };
    for (const auto& running : desktop_.workspace.runningApplications())
        if (running.bundleIdentifier) add(*running.bundleIdentifier, running.localizedName);
    for (const auto& installed : report_.installedApplications())
        add(installed.bundleIdentifier, installed.name);
    for (const auto& launcher : desktop_.facts.launchers.identifiers)
        add(launcher, nameOf(launcher));
    return known;
}

std::vector<Named> AgentCommands::knownSources() const {
    std::vector<Named> known;
    for (auto& [id, name] : selectableSources(desktop_.inputSources))
        known.push_back({id, name});
    return known;
}

std::string AgentCommands::nameOf(const std::string& bundleIdentifier) const {
    const auto running = desktop_.workspace.runningApplicationsWithBundleIdentifier(bundleIdentifier);
    if (!running.empty() && !running.front().localizedName.empty()) return running.front().localizedName;
    const auto path = desktop_.applicationBundles.absolutePathForAppBundle(bundleIdentifier);
    return path ? desktop_.applicationBundles.displayNameAtPath(*path) : bundleIdentifier;
}

PropertyList AgentCommands::sourceDocument(const std::optional<std::string>& id) const {
    if (!id) return {};
    return Dictionary{{"identifier", *id}, {"name", settingsCommands_.nameOfSource(*id)}};
}

/// Which source an application is to have, and why.
PropertyList AgentCommands::explanation(const std::optional<Named>& application) const {
    const auto wanted =
        program_.decision.wantedBy(application ? std::optional(application->id) : std::nullopt);
    PropertyList document = Dictionary{{"reason", wordOf(wanted.reason)},
                                       {"isPaused", program_.pause.isOn()},
                                       {"companionDecides", program_.companion.isRunning()}};
    if (application)
        document = document.with("application",
                                 Dictionary{{"identifier", application->id}, {"name", application->name}});
    auto source = sourceDocument(wanted.id);
    const auto isWanted = [&](const Named& each) { return each.id == wanted.id; };
    if (wanted.id && std::ranges::none_of(knownSources(), isWanted)) source = source.with("isMissing", true);
    return document.with("wanted", source);
}

/// That of the last decision; none for one without an identifier, and before the first decision.
std::optional<Named> AgentCommands::lastApplication() const {
    const auto& last = program_.decision.lastDecision();
    if (!last || !last->application) return std::nullopt;
    return Named{*last->application, nameOf(*last->application)};
}

CommandResult AgentCommands::why(const CommandRequest& request) {
    if (request.arguments.size() > 1) return commandMisuse("why takes an application");
    if (request.arguments.size() == 1) {
        const auto found = settingsCommands_.application(request.arguments[0]);
        return found.one ? CommandResult{CommandStatus::done, explanation(found.one)} : found.failure;
    }
    const auto& last = program_.decision.lastDecision();
    if (!last) return commandFailure(CommandStatus::failed, "no application has come to the front yet");
    return {CommandStatus::done, explanation(lastApplication())};
}

CommandResult AgentCommands::status(const CommandRequest& request) {
    if (!request.arguments.empty()) return commandMisuse("status takes no argument");
    const auto& last = program_.decision.lastDecision();
    auto document = explanation(lastApplication());
    const auto frontmost = desktop_.workspace.frontmostApplication();
    const auto recognition = report_.recognition();
    if (frontmost && last && frontmost->bundleIdentifier == last->application && !recognition.empty())
        document = document.with("recognisedBy", recognition);
    const auto current = desktop_.inputSources.copyCurrentKeyboardInputSource();
    if (current) document = document.with("current", sourceDocument(current->id));
    if (const auto end = program_.pause.end()) document = document.with("pausedUntil", *end);
    if (const auto trouble = report_.settingsTrouble(); !trouble.empty())
        document = document.with("settingsTrouble", trouble);
    return {CommandStatus::done,
            document.with("provider", report_.inputSourceProvider())
                .with("refusedShortcuts", refusedShortcuts())
                .with("switches", openSharedDefaults(desktop_.defaults)->integerForKey(key::switchTimes))};
}

PropertyList AgentCommands::refusedShortcuts() const {
    PropertyList::Array refused;
    const auto stored = desktop_.defaults.standardUserDefaults().objectForKey(key::shortcutOfInput);
    if (const auto* shortcuts = stored.dictionary())
        for (const auto& [source, record] : *shortcuts)
            if (program_.hotKeyCenter.isRefused(source)) refused.push_back(sourceDocument(source));
    return refused;
}

CommandResult AgentCommands::applications(const CommandRequest& request) {
    if (!request.arguments.empty()) return commandMisuse("apps takes no argument");
    PropertyList::Array list;
    for (const auto& [id, name] : knownApplications()) {
        const bool isRunning = !desktop_.workspace.runningApplicationsWithBundleIdentifier(id).empty();
        list.emplace_back(Dictionary{{"identifier", id}, {"name", name}, {"isRunning", isRunning}});
    }
    return {CommandStatus::done, std::move(list)};
}

CommandResult AgentCommands::sources(const CommandRequest& request) {
    if (!request.arguments.empty()) return commandMisuse("sources takes no argument");
    const auto current = program_.inputSwitch.currentInputSourceID();
    PropertyList::Array list;
    for (const auto& [id, name] : knownSources())
        list.emplace_back(Dictionary{{"identifier", id}, {"name", name}, {"isCurrent", id == current}});
    return {CommandStatus::done, std::move(list)};
}

CommandResult AgentCommands::select(const CommandRequest& request) {
    if (request.arguments.size() != 1) return commandMisuse("select takes a source");
    const auto found = settingsCommands_.source(request.arguments[0]);
    if (!found.one) return found.failure;
    program_.inputSwitch.changeInputTo(found.one->id);
    return {CommandStatus::done, PropertyList().with("source", sourceDocument(found.one->id))};
}

CommandResult AgentCommands::pause(const CommandRequest& request) {
    if (request.arguments.size() > 1) return commandMisuse("pause takes a duration");
    std::optional<double> seconds;
    if (request.arguments.size() == 1) {
        seconds = secondsOfText(request.arguments[0]);
        if (!seconds)
            return commandMisuse(request.arguments[0] + " is no duration; write it like 90s, 10m or 2h");
    }
    program_.pause.pause(seconds);
    return {CommandStatus::done, {}};
}

CommandResult AgentCommands::resume(const CommandRequest& request) {
    if (!request.arguments.empty()) return commandMisuse("resume takes no argument");
    program_.pause.resume();
    return {CommandStatus::done, {}};
}

void AgentCommands::tell() {
    const auto& decision = *program_.decision.lastDecision();
    constexpr double millisecondsInASecond = 1000;
    PropertyList told = Dictionary{{"time", decision.madeAt},
                                   {"reason", wordOf(decision.wanted.reason)},
                                   {"outcome", wordOf(decision.outcome)},
                                   {"milliseconds", decision.seconds * millisecondsInASecond}};
    if (decision.application) told = told.with("application", *decision.application);
    if (decision.wanted.id) told = told.with("source", *decision.wanted.id);
    decided.emit(told);
}

} // namespace quorvane
