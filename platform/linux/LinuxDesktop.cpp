#include "platform/linux/LinuxDesktop.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QUrl>

#include "platform/linux/LaunchArguments.h"
#include "platform/linux/qt/ApplicationIcon.h"
#include "platform/linux/qt/LettersIcon.h"
#include "platform/linux/qt/ReferencedIcon.h"
#include "settings/Maker.h"

namespace quorvane {
namespace {

/// Keys that input methods are switched with, alone or with another key.
constexpr auto switchingModifiers =
    ModifierFlag::shift | ModifierFlag::control | ModifierFlag::option | ModifierFlag::command;

/// It lies beside the program, wherever that was installed or built.
std::string helpPage() {
    const QFileInfo page(QCoreApplication::applicationDirPath() +
                         QStringLiteral("/../share/quorvane/help/index.html"));
    if (!page.isFile()) return {};
    return QUrl::fromLocalFile(page.canonicalFilePath()).toEncoded().toStdString();
}

DesktopFacts factsOfLinux() {
    return {
        // A layout takes effect at once, and an input method as soon as the program in front
        // can take one, which its daemon's class waits for. A wait would only send the first keys to the
        // wrong source.
        .switchDelay = 0,
        .screenChangeDelay = 0,
        // Rules were once stored as if the launchers were those of the native desktop.
        .launchers = {.areTold = true,
                      .identifiers = launcherIdentifiers(),
                      .identifierPrefixes = {},
                      .formerPrefix = std::string(alfredBundleIdentifierPrefix) + "."},
        .inputSourcesComeAndGo = true,
        // Desktops have no common program for it, but all of them read this folder.
        .loginItemsCommand = R"(f="${XDG_CONFIG_HOME:-$HOME/.config}/autostart"; mkdir -p "$f" && )"
                             R"(xdg-open "$f" >/dev/null 2>&1 &)",
        .reviewPage = std::string(maker::reviewPage),
        .reviewPageOfPro = std::string(maker::reviewPageOfPro),
        .helpPage = helpPage(),
        .relaunchPath = QCoreApplication::applicationFilePath().toStdString(),
        .relaunchArguments = {launch_argument::newInstance},
        .pausedArgument = launch_argument::pausedUntil,
    };
}

/// Who may run without a window and matters: the companion, and the launchers for the user's table.
std::vector<std::string> applicationsWithoutWindows() {
    auto ids = launcherIdentifiers();
    ids.emplace_back(maker::companionBundleIdentifier);
    return ids;
}

/// Where the session looks for what the user wants started at login.
std::string autostartFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation).toStdString() + "/autostart";
}

const InputMethodIcons icons{drawLettersIcon, referencedIcon};

} // namespace

LinuxDesktop::LinuxDesktop(const SessionStart& startSession, Purpose purpose)
    : defaults_(LinuxUserDefaults::configFolder(), maker::bundleIdentifier)
    , distributedNotifications_(maker::distributedNotificationInterface,
                                [this] { defaults_.flushPendingWrites(); })
    , busApplications_(applicationsWithoutWindows())
    , desktopEntries_(DesktopEntries::ofEnvironment())
    , applications_(desktopEntries_, &busApplications_)
    , otherNames_(
          purpose == Purpose::lookAround
              ? std::nullopt
              : std::optional<OtherNames>(std::in_place, defaults_, applications_.owners, desktopEntries_))
    , session_(startSession(applications_))
    , parts_(session_->parts())
    , ibus_(parts_.hasIBusEngines ? std::nullopt
                                  : std::optional<IBusInputSources>(std::in_place, parts_.layouts, icons))
    , fcitx5_(parts_.layouts, icons)
    , inputSources_(parts_.name, parts_.layouts, daemons())
    , activationsForInput_(
          applications_.workspace.addObserver(WorkspaceNotification::didActivateApplication,
                                              [this](const auto& application) { activated(application); }))
    , departuresForInput_(applications_.workspace.addObserver(
          WorkspaceNotification::didLeaveFront, [this](const auto&) { frontApplication_.reset(); }))
    , fcitx5Availability_(fcitx5_.availabilityChanged.connect([this] { watchSwitchesByHand(); }))
    , selectionChanges_(inputSources_.selectionChanged.connect([this] {
        distributedNotifications_.deliverLocally(
            {std::string(selectedKeyboardInputSourceChangedNotification), {}});
    }))
    , application_(parts_.windowHost)
    , applicationBundles_(desktopEntries_,
                          [](const std::string& icon) {
                              return std::make_shared<ApplicationIcon>(QString::fromStdString(icon));
                          })
    , interfaceFiles_(parts_, notifications_)
    , settingsNotices_(defaults_.health(), interfaceFiles_.notices())
    , activations_(
          applications_.workspace.addObserver(WorkspaceNotification::didActivateApplication,
                                              [this](const auto&) { interfaceFiles_.raiseIndicator(); }))
    // A window that now fills the screen covers it.
    , frontWindowChanges_(
          parts_.windowList.addFrontWindowObserver([this] { interfaceFiles_.raiseIndicator(); }))
    , launcherChanges_(applications_.launchers.onChange([this] { interfaceFiles_.raiseIndicator(); }))
    , statusBar_(parts_.x, defaults_.standardUserDefaults())
    , alerts_(parts_.windowHost)
    , openPanel_(desktopEntries_)
    , processes_([this] { defaults_.flushPendingWrites(); })
    , loginItems_(autostartFolder(), std::string(maker::bundleIdentifier),
                  QCoreApplication::applicationFilePath().toStdString())
    , desktop_{.facts = factsOfLinux(),
               .alerts = alerts_,
               .application = application_,
               .applicationBundles = applicationBundles_,
               .clock = clock_,
               .cursor = parts_.cursor,
               .distributedNotifications = distributedNotifications_,
               .globalEvents = parts_.globalEvents,
               .hotKeys = parts_.hotKeys,
               .images = images_,
               .interfaceFiles = interfaceFiles_,
               .links = links_,
               .log = log_,
               .loginItems = loginItems_,
               .notifications = notifications_,
               .windowList = parts_.windowList,
               .openPanel = openPanel_,
               .processes = processes_,
               .runLoop = runLoop_,
               .screens = parts_.screens,
               .statusBar = statusBar_,
               .switchingAhead = parts_.switchingAhead,
               .inputSources = inputSources_,
               .defaults = defaults_,
               .workspace = applications_.workspace} {
    if (parts_.shellExtension) extensionNotices_.emplace(*parts_.shellExtension, interfaceFiles_.notices());
}

/// In the order in which they are preferred.
std::vector<InputMethodDaemon*> LinuxDesktop::daemons() {
    std::vector<InputMethodDaemon*> daemons{&fcitx5_};
    if (ibus_) daemons.push_back(&*ibus_);
    return daemons;
}

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

void LinuxDesktop::watchSwitchesByHand() {
    switchesByHand_.end();
    if (!fcitx5_.isAvailable()) return;
    switchesByHand_ = parts_.globalEvents.addGlobalMonitor(
        eventMask(EventType::leftMouseUp) | eventMask(EventType::flagsChanged), [this](const Event& event) {
            if (!(event.modifierFlags & switchingModifiers)) fcitx5_.userMayHaveSwitched();
        });
}

} // namespace quorvane
