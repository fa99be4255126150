#include "control/SettingsCommands.h"

#include <algorithm>
#include <optional>
#include <set>

#include "control/PlainValue.h"
#include "control/ShortcutText.h"
#include "settings/AppRule.h"
#include "settings/DefaultInput.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "settings/RuleTableOrder.h"

namespace quorvane {
namespace {

using Dictionary = PropertyList::Dictionary;

constexpr std::string_view none = "none";

std::vector<std::string> keysOf(const PropertyList& dictionary) {
    std::vector<std::string> keys;
    if (const auto* entries = dictionary.dictionary())
        for (const auto& [key, value] : *entries)
            keys.push_back(key);
    return keys;
}

std::vector<Named> namedById(const std::vector<std::string>& ids) {
    std::vector<Named> named;
    for (const auto& id : ids)
        named.push_back({id, id});
    return named;
}

PropertyList documentOf(const SettingsChange& change) {
    return PropertyList(Dictionary{{"setting", change.setting}, {"entry", change.entry}})
        .with("before", plainOf(change.before))
        .with("after", plainOf(change.after));
}

} // namespace

KnownNames::Found SettingsCommands::application(std::string_view text) const {
    return names_.application(text, namedById(keysOf(standard_.objectForKey(key::autoInput))));
}

KnownNames::Found SettingsCommands::source(std::string_view text) const {
    return names_.source(text, sourcesInUse());
}

std::string SettingsCommands::nameOfSource(const std::string& id) const {
    const auto known = names_.sources();
    const auto found = std::ranges::find(known, id, &Named::id);
    return found == known.end() ? id : found->name;
}

/// A source that was taken away can still be named where it is set.
std::vector<std::string> SettingsCommands::sourcesInUse() const {
    std::set<std::string> ids;
    if (auto id = defaultInput(standard_)) ids.insert(*id);
    for (const auto& id : keysOf(standard_.objectForKey(key::shortcutOfInput)))
        ids.insert(id);
    const auto rules = standard_.objectForKey(key::autoInput);
    for (const auto& application : keysOf(rules))
        if (auto id = AppRule::ofApplication(rules, application).id()) ids.insert(*id);
    return {ids.begin(), ids.end()};
}

PropertyList SettingsCommands::sourceDocument(const std::optional<std::string>& id) const {
    if (!id) return {};
    return Dictionary{{"identifier", *id}, {"name", nameOfSource(*id)}};
}

PropertyList SettingsCommands::ruleDocument(const Named& application) const {
    const auto id = AppRule::ofApplication(standard_.objectForKey(key::autoInput), application.id).id();
    return PropertyList(Dictionary{{"identifier", application.id}, {"name", application.name}})
        .with("source", sourceDocument(id));
}

CommandResult SettingsCommands::rules(const CommandRequest& request) const {
    if (!request.arguments.empty()) return commandMisuse("rules takes no argument");
    const auto stored = standard_.objectForKey(key::autoInput);
    const auto known = names_.applications();
    PropertyList::Array list;
    for (const auto& id : inUsersOrder(keysOf(stored), standard_)) {
        if (!AppRule::ofApplication(stored, id).id()) continue;
        const auto found = std::ranges::find(known, id, &Named::id);
        list.push_back(ruleDocument({id, found == known.end() ? id : found->name}));
    }
    return {CommandStatus::done, std::move(list)};
}

CommandResult SettingsCommands::rule(const CommandRequest& request) {
    const auto& arguments = request.arguments;
    if (arguments.empty() || arguments.size() > 2)
        return commandMisuse("rule takes an application and a source");
    const auto meant = application(arguments[0]);
    if (!meant.one) return meant.failure;
    if (arguments.size() == 2) {
        std::optional<std::string> id;
        if (arguments[1] != none) {
            const auto found = source(arguments[1]);
            if (!found.one) return found.failure;
            id = found.one->id;
        }
        setRuleInput(standard_, meant.one->id, id);
        consequences_.settingsChanged();
    }
    return {CommandStatus::done, ruleDocument(*meant.one)};
}

CommandResult SettingsCommands::defaultSource(const CommandRequest& request) {
    const auto& arguments = request.arguments;
    if (arguments.size() > 1) return commandMisuse("default takes a source");
    if (arguments.size() == 1) {
        std::optional<std::string> id;
        if (arguments[0] != none) {
            const auto found = source(arguments[0]);
            if (!found.one) return found.failure;
            id = found.one->id;
        }
        setDefaultInput(standard_, id);
        standard_.synchronize();
    }
    return {CommandStatus::done, PropertyList().with("source", sourceDocument(defaultInput(standard_)))};
}

PropertyList SettingsCommands::shortcutDocument(const Named& source) const {
    const auto record = standard_.objectForKey(key::shortcutOfInput)[source.id];
    PropertyList document = Dictionary{{"identifier", source.id}, {"name", nameOfSource(source.id)}};
    if (const auto shortcut = InputShortcut::ofRecord(record)) {
        document = document.with("keys", textOfShortcut(*shortcut));
        if (consequences_.isShortcutRefused(source.id)) document = document.with("isRefused", true);
    }
    return document;
}

CommandResult SettingsCommands::shortcut(const CommandRequest& request) {
    const auto& arguments = request.arguments;
    if (arguments.empty() || arguments.size() > 2) return commandMisuse("shortcut takes a source and keys");
    const auto meant = source(arguments[0]);
    if (!meant.one) return meant.failure;
    if (arguments.size() == 2) {
        if (arguments[1] == none) {
            removeShortcut(standard_, meant.one->id);
        } else {
            const auto shortcut = shortcutOfText(arguments[1]);
            if (!shortcut) return commandMisuse(arguments[1] + " is no hot key; write it like Ctrl+Alt+R");
            setShortcut(standard_, meant.one->id, shortcut->record());
        }
        consequences_.shortcutChanged(meant.one->id);
    }
    return {CommandStatus::done, shortcutDocument(*meant.one)};
}

CommandResult SettingsCommands::exportSettings(const CommandRequest& request) const {
    if (!request.arguments.empty()) return commandMisuse("export takes no argument here");
    return {CommandStatus::done, settingsDocument(stores_)};
}

CommandResult SettingsCommands::importSettings(const CommandRequest& request) {
    bool isDryRun = false;
    auto manner = ImportManner::merge;
    for (const auto& argument : request.arguments) {
        if (argument == "--dry-run")
            isDryRun = true;
        else if (argument == "--replace")
            manner = ImportManner::replace;
        else
            return commandMisuse("import does not know " + argument);
    }
    const auto changes = changesBy(request.document, stores_, manner);
    if (!changes)
        return commandFailure(CommandStatus::failed,
                              "these are no settings of Quorvane, or those of a later version");
    PropertyList::Array told;
    for (const auto& change : *changes)
        told.push_back(documentOf(change));
    if (!isDryRun) {
        makeChanges(*changes, stores_);
        tellConsequences(*changes);
    }
    return {CommandStatus::done, std::move(told)};
}

void SettingsCommands::tellConsequences(const std::vector<SettingsChange>& changes) {
    for (const auto& change : changes) {
        if (change.setting != "shortcuts") continue;
        if (!change.entry.empty()) {
            consequences_.shortcutChanged(change.entry);
            continue;
        }
        for (const auto* side : {&change.before, &change.after})
            for (const auto& id : keysOf(*side))
                consequences_.shortcutChanged(id);
    }
    consequences_.settingsChanged();
}

} // namespace quorvane
