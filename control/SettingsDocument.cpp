#include "control/SettingsDocument.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "control/PlainValue.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {
namespace {

constexpr std::string_view versionKey = "quorvane", options = "options";
constexpr std::int64_t version = 1;

struct Setting {
    std::string_view name; ///< In the document; that of an option is its key.
    std::string_view key;  ///< In the store.
    bool isShared = false;
    bool isOption = false;
    bool hasEntries = false; ///< A dictionary, each entry of which is a setting of its own.
};

constexpr Setting settings[] = {
    {.name = "rules", .key = key::autoInput, .hasEntries = true},
    {.name = "order", .key = key::orderOfAppsRule},
    {.name = "hidden", .key = key::notDisplayAppName},
    {.name = "locations", .key = key::arrOfLocationInfo, .isShared = true},
    {.name = "defaultSource", .key = key::defaultInput},
    {.name = "shortcuts", .key = key::shortcutOfInput, .hasEntries = true},
    {.name = options, .key = key::autoStartAtLogin, .isOption = true},
    {.name = options, .key = key::enableTipOfState, .isOption = true},
    {.name = options, .key = key::followWindow, .isOption = true},
    {.name = options, .key = key::hiddenIconInStatusBar, .isOption = true},
    {.name = options, .key = key::enableForceEnglishBrowserAddress, .isOption = true},
    {.name = options, .key = key::notNeedRemindForAutoStartAtLogin, .isOption = true},
};

/// The stores for the time of one command. The program's own domain: what others share is not the user's
/// here.
struct Stores {
    explicit Stores(UserDefaultsStores& all)
        : own(all.standardUserDefaults().ownDomain())
        , shared(openSharedDefaults(all)) {}

    UserDefaults& of(const Setting& setting) { return setting.isShared ? *shared : own; }
    PropertyList stored(const Setting& setting) { return of(setting).objectForKey(setting.key); }

    UserDefaults& own;
    std::unique_ptr<UserDefaults> shared;
};

PropertyList inDocument(const PropertyList& document, const Setting& setting) {
    const auto& section = document[setting.name];
    return ofPlain(setting.isOption ? section[setting.key] : section);
}

/// The locations that are there, but those that the document names as the document has them, and its others
/// behind them.
PropertyList mergedLocations(const PropertyList& stored, const PropertyList& added) {
    if (!stored.array() || !added.array()) return added;
    const auto isSame = [](const PropertyList& one, const PropertyList& other) {
        return one["BundleIdentifier"] == other["BundleIdentifier"] && one["Name"] == other["Name"];
    };
    auto merged = *stored.array();
    for (const auto& location : *added.array()) {
        const auto place =
            std::ranges::find_if(merged, [&](const auto& each) { return isSame(each, location); });
        if (place == merged.end())
            merged.push_back(location);
        else
            *place = location;
    }
    return merged;
}

void addChange(std::vector<SettingsChange>& changes, const Setting& setting, std::string_view entry,
               const PropertyList& before, const PropertyList& after) {
    if (before == after) return;
    changes.push_back({std::string(setting.name), std::string(entry), before, after});
}

void addChangesOfEntries(std::vector<SettingsChange>& changes, const Setting& setting,
                         const PropertyList& before, const PropertyList& after, ImportManner manner) {
    std::set<std::string_view> entries;
    for (const auto* side : {before.dictionary(), after.dictionary()})
        if (side)
            for (const auto& [entry, value] : *side)
                entries.insert(entry);
    for (const auto entry : entries)
        if (manner == ImportManner::replace || !after[entry].isNothing())
            addChange(changes, setting, entry, before[entry], after[entry]);
}

} // namespace

PropertyList settingsDocument(UserDefaultsStores& stores) {
    Stores opened(stores);
    PropertyList document = PropertyList::Dictionary{{std::string(versionKey), version}};
    for (const auto& setting : settings) {
        auto value = plainOf(opened.stored(setting));
        if (value.isNothing()) continue;
        document = document.with(setting.name,
                                 setting.isOption ? document[setting.name].with(setting.key, std::move(value))
                                                  : value);
    }
    return document;
}

std::optional<std::vector<SettingsChange>> changesBy(const PropertyList& document, UserDefaultsStores& stores,
                                                     ImportManner manner) {
    const auto* itsVersion = document[versionKey].integer();
    if (!itsVersion || *itsVersion < 1 || *itsVersion > version) return std::nullopt;
    Stores opened(stores);
    std::vector<SettingsChange> changes;
    for (const auto& setting : settings) {
        const auto before = opened.stored(setting);
        auto after = inDocument(document, setting);
        if (after.isNothing() && manner == ImportManner::merge) continue;
        const bool haveEntries = after.dictionary() && (before.dictionary() || before.isNothing());
        if (setting.hasEntries && haveEntries && !(before.isNothing() && after.dictionary()->empty())) {
            addChangesOfEntries(changes, setting, before, after, manner);
            continue;
        }
        if (setting.isShared && manner == ImportManner::merge) after = mergedLocations(before, after);
        addChange(changes, setting, setting.isOption ? setting.key : "", before, after);
    }
    return changes;
}

void makeChanges(const std::vector<SettingsChange>& changes, UserDefaultsStores& stores) {
    Stores opened(stores);
    bool ownChanges = false, sharedChanges = false;
    for (const auto& setting : settings) {
        auto value = opened.stored(setting);
        const auto before = value;
        for (const auto& change : changes) {
            if (change.setting != setting.name || (setting.isOption && change.entry != setting.key)) continue;
            const bool isEntry = setting.hasEntries && !change.entry.empty();
            value = isEntry ? value.with(change.entry, change.after) : change.after;
        }
        if (value == before) continue;
        opened.of(setting).setObject(value, setting.key);
        (setting.isShared ? sharedChanges : ownChanges) = true;
    }
    if (ownChanges) opened.own.synchronize();
    if (sharedChanges) opened.shared->synchronize();
}

} // namespace quorvane
