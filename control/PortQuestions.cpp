#include "control/PortQuestions.h"

#include <array>
#include <cstdint>
#include <optional>
#include <sstream>
#include <utility>

#include "control/Named.h"
#include "input/CompanionLink.h"
#include "input/IconLoading.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {
namespace {

constexpr const char* nothing = "none";

std::string factOf(double number) {
    std::ostringstream digits;
    digits << number;
    return std::move(digits).str();
}

std::string factOf(Size size) {
    return factOf(size.width) + " x " + factOf(size.height);
}

std::string factOf(const Rect& rect) {
    return factOf(Size{rect.width, rect.height}) + " at " + factOf(rect.x) + ", " + factOf(rect.y);
}

std::string factOf(const ImageRef& image) {
    return image ? factOf(image->size()) : nothing;
}

// Each of the following asks one port -----------------------------------------------------------------------

std::string factOf(const std::optional<InputSource>& source, const TextInputSources& sources) {
    return source ? textOf(Named{source->id, sources.localizedName(*source)}) : nothing;
}

void askSources(const Desktop& desktop, const TellFact& tell) {
    const auto& sources = desktop.inputSources;
    const auto list = sources.createInputSourceList();
    if (list.empty()) tell("source", nothing);
    for (const auto& source : list) {
        auto fact = factOf(source, sources);
        if (source.category != InputSourceCategory::keyboard) fact += ", not of a keyboard";
        if (!source.isSelectCapable) fact += ", cannot be selected";
        if (source.hasIconReference) fact += ", icon drawn by the desktop";
        if (!source.iconImageURL.empty()) fact += ", icon in a file";
        tell("source", fact + ", icon " + factOf(loadIcon(source, sources, desktop.images)));
    }
    tell("current source", factOf(sources.copyCurrentKeyboardInputSource(), sources));
    tell("current layout", factOf(sources.copyCurrentKeyboardLayoutInputSource(), sources));
    tell("switches ahead", desktop.switchingAhead ? "yes" : "no");
}

void askWorkspace(const Desktop& desktop, const TellFact& tell) {
    const auto front = desktop.workspace.frontmostApplication();
    tell("in front",
         front ? textOf(Named{front->bundleIdentifier.value_or("no identifier"), front->localizedName}) +
                     ", process " + std::to_string(front->processIdentifier)
               : nothing);
    const auto path = front && front->bundleIdentifier
                          ? desktop.applicationBundles.absolutePathForAppBundle(*front->bundleIdentifier)
                          : std::nullopt;
    if (path)
        tell("its bundle", desktop.applicationBundles.displayNameAtPath(*path) + ", icon " +
                               factOf(desktop.applicationBundles.iconForFile(*path)));
    else
        tell("its bundle", nothing);
    tell("applications", std::to_string(desktop.workspace.runningApplications().size()));
    const CompanionLink companion(desktop.workspace, desktop.defaults, desktop.distributedNotifications);
    tell("companion", companion.isRunning() ? "runs" : "does not run");
}

void askWindows(const Desktop& desktop, const TellFact& tell) {
    const auto windows = desktop.windowList.windows();
    if (windows.empty()) tell("window", nothing);
    for (const auto& window : windows) {
        const auto* name = !window.name ? "no name told" : window.name->empty() ? "an empty name" : "a name";
        tell("window", window.ownerName.value_or("no owner told") + ", layer " +
                           std::to_string(window.layer) + ", " + factOf(window.bounds) + ", " + name +
                           (window.isOnScreen ? "" : ", not on the screen"));
    }
    std::string launchers = desktop.facts.launchers.areTold ? "told by the desktop:" : "looked for:";
    for (const auto& identifier : desktop.facts.launchers.identifiers)
        launchers += ' ' + identifier;
    for (const auto& prefix : desktop.facts.launchers.identifierPrefixes)
        launchers += ' ' + prefix + '*';
    tell("launchers", launchers);
}

std::string factOf(const std::optional<Screen>& screen) {
    if (!screen) return nothing;
    return "number " + std::to_string(screen->number) + ", " + factOf(screen->frame) + ", " +
           std::to_string(screen->depth) + " bits";
}

void askScreens(const Desktop& desktop, const TellFact& tell) {
    tell("main screen", factOf(desktop.screens.mainScreen()));
    tell("deepest screen", factOf(desktop.screens.deepestScreen()));
    const auto hotSpot = desktop.cursor.hotSpot();
    tell("hot spot", hotSpot ? factOf(hotSpot->x) + ", " + factOf(hotSpot->y) : nothing);
}

/// How much there is, not what.
std::string amountOf(const PropertyList& value) {
    if (const auto* boolean = value.boolean()) return *boolean ? "on" : "off";
    if (const auto* dictionary = value.dictionary()) return std::to_string(dictionary->size());
    if (const auto* array = value.array()) return std::to_string(array->size());
    if (const auto* integer = value.integer()) return std::to_string(*integer);
    return "set";
}

template <std::size_t count>
std::string factOf(std::string_view domain, const UserDefaults& store,
                   const std::array<std::string_view, count>& keys) {
    std::string fact(domain);
    for (const auto key : keys)
        if (const auto value = store.objectForKey(key); !value.isNothing())
            fact.append(", ").append(key).append(" ").append(amountOf(value));
    return fact;
}

void askSettings(const Desktop& desktop, const TellFact& tell) {
    constexpr std::array own{key::autoStartAtLogin,
                             key::notNeedRemindForAutoStartAtLogin,
                             key::enableTipOfState,
                             key::followWindow,
                             key::hiddenIconInStatusBar,
                             key::defaultInput,
                             key::orderOfAppsRule,
                             key::notDisplayAppName,
                             key::shortcutOfInput,
                             key::autoInput,
                             key::enableForceEnglishBrowserAddress};
    constexpr std::array shared{key::switchTimes, key::arrOfLocationInfo, key::askTandrelSwitchInput,
                                key::autoInput, key::enableForceEnglishBrowserAddress};
    tell("own settings", factOf(maker::bundleIdentifier, desktop.defaults.standardUserDefaults(), own));
    tell("shared settings", factOf(maker::sharedSuiteName, *openSharedDefaults(desktop.defaults), shared));
    const auto isEnabled = desktop.loginItems.isEnabled(maker::loginItemIdentifier);
    tell("login item", !isEnabled ? "not told" : *isEnabled ? "on" : "off");
}

void askApplication(const Desktop& desktop, const TellFact& tell) {
    constexpr auto localizedKey = "Preferences…";
    tell("text", desktop.application.localizedString(localizedKey));
    tell("picture", "menuBarIcon " + factOf(desktop.images.imageNamed("menuBarIcon")));
    tell("time", std::to_string(static_cast<std::int64_t>(desktop.clock.secondsSince1970())));
}

} // namespace

void askPorts(Desktop& desktop, const TellFact& tell) {
    askApplication(desktop, tell);
    askSources(desktop, tell);
    askWorkspace(desktop, tell);
    askWindows(desktop, tell);
    askScreens(desktop, tell);
    askSettings(desktop, tell);
}

} // namespace quorvane
