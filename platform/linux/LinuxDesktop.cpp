#include "platform/linux/LinuxDesktop.h"

#include <QGuiApplication>
#include <QStandardPaths>

#include "platform/linux/LaunchArguments.h"
#include "platform/linux/dbus/SessionBus.h"
#include "platform/linux/qt/LettersIcon.h"
#include "platform/linux/qt/ReferencedIcon.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

/// What the companion of other desktops posts when the front window has changed. Here nobody has to.
constexpr const char* frontWindowNotification = "AXWindowAdjusted";

/// A window of which no side is longer is no window to work in, and where it is, is not told.
constexpr double smallestSide = 200; // points

/// Keys that input methods are switched with, alone or with another key.
constexpr auto switchingModifiers =
    ModifierFlag::shift | ModifierFlag::control | ModifierFlag::option | ModifierFlag::command;

DesktopFacts factsOfX11() {
    return {
        // A layout of the X server takes effect at once, and an input method as soon as the program in front
        // can take one, which its daemon's class waits for. A wait would only send the first keys to the
        // wrong source.
        .switchDelay = 0,
        .screenChangeDelay = 0,
        // Desktops have no common program for it, but all of them read this folder.
        .loginItemsCommand = "xdg-open \"${XDG_CONFIG_HOME:-$HOME/.config}/autostart\" >/dev/null 2>&1 &",
        .relaunchPath = QCoreApplication::applicationFilePath().toStdString(),
        .relaunchArguments = {launch_argument::newInstance},
    };
}

/// Where the session looks for what the user wants started at login.
std::string autostartFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation).toStdString() + "/autostart";
}

} // namespace

LinuxDesktop::LinuxDesktop(XConnection& x)
    : defaults_(LinuxUserDefaults::configFolder(), maker::bundleIdentifier)
    , distributedNotifications_(maker::distributedNotificationInterface,
                                [this] { defaults_.flushPendingWrites(); })
    , desktopEntries_(DesktopEntries::ofEnvironment())
    , identities_(x, desktopEntries_)
    , launchers_(x)
    , workspace_(x, identities_, launchers_, &busApplications_)
    , screens_(x, workspace_, qGuiApp->devicePixelRatio())
    , frontWindow_(x, workspace_, screens_)
    , windowList_(x, identities_, screens_, launchers_)
    , globalEvents_(x)
    , hotKeys_(x)
    , cursor_(x, qGuiApp->devicePixelRatio())
    , layouts_(x, drawLettersIcon)
    , ibus_(layouts_, {drawLettersIcon, referencedIcon})
    , fcitx5_(sessionBus(), layouts_, {drawLettersIcon, referencedIcon})
    , inputSources_(layouts_, {&fcitx5_, &ibus_})
    , activationsForInput_(
          workspace_.addObserver(WorkspaceNotification::didActivateApplication,
                                 [this](const auto& application) { activated(application); }))
    , switchesByHand_(globalEvents_.addGlobalMonitor(eventMask(EventType::leftMouseUp) |
                                                         eventMask(EventType::flagsChanged),
                                                     [this](const Event& event) {
                                                         if (!(event.modifierFlags & switchingModifiers))
                                                             fcitx5_.userMayHaveSwitched();
                                                     }))
    , selectionChanges_(inputSources_.selectionChanged.connect([this] {
        distributedNotifications_.deliverLocally(
            {std::string(selectedKeyboardInputSourceChangedNotification), {}});
    }))
    , applicationBundles_(desktopEntries_, workspace_)
    , interfaceFiles_(screens_, {x, notifications_, defaults_.standardUserDefaults()})
    , activations_(workspace_.addObserver(WorkspaceNotification::didActivateApplication,
                                          [this](const auto&) { interfaceFiles_.raiseIndicator(); }))
    , frontWindowChanges_(frontWindow_.changed.connect([this](const auto& bounds) {
        interfaceFiles_.raiseIndicator(); // A window that now fills the screen covers it.
        tellFrontWindow(bounds);
    }))
    , launcherChanges_(launchers_.onChange([this] { interfaceFiles_.raiseIndicator(); }))
    , openPanel_(desktopEntries_)
    , processes_([this] { defaults_.flushPendingWrites(); })
    , loginItems_(autostartFolder(), QCoreApplication::applicationFilePath().toStdString())
    , desktop_{.facts = factsOfX11(),
               .alerts = alerts_,
               .application = application_,
               .applicationBundles = applicationBundles_,
               .clock = clock_,
               .cursor = cursor_,
               .distributedNotifications = distributedNotifications_,
               .globalEvents = globalEvents_,
               .hotKeys = hotKeys_,
               .images = images_,
               .interfaceFiles = interfaceFiles_,
               .links = links_,
               .log = log_,
               .loginItems = loginItems_,
               .notifications = notifications_,
               .windowList = windowList_,
               .openPanel = openPanel_,
               .processes = processes_,
               .runLoop = runLoop_,
               .screens = screens_,
               .statusBar = statusBar_,
               .inputSources = inputSources_,
               .defaults = defaults_,
               .workspace = workspace_} {}

/// The program decides about applications, not about their windows.
void LinuxDesktop::activated(const RunningApplication& application) {
    if (application.bundleIdentifier && application.bundleIdentifier == frontApplication_) {
        fcitx5_.windowActivated(application.processIdentifier);
        return;
    }
    frontApplication_ = application.bundleIdentifier;
    inputSources_.applicationActivated(application.bundleIdentifier.value_or(""),
                                       application.processIdentifier);
}

void LinuxDesktop::tellFrontWindow(const std::optional<Rect>& bounds) {
    if (bounds && bounds->width <= smallestSide && bounds->height <= smallestSide) return;
    PropertyList::Dictionary described;
    if (bounds) {
        described = {
            {"X", bounds->x}, {"Y", bounds->y}, {"Width", bounds->width}, {"Height", bounds->height}};
    }
    distributedNotifications_.deliverLocally({frontWindowNotification, std::move(described)});
}

} // namespace quorvane
