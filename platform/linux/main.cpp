#include <cstdio>
#include <optional>
#include <span>
#include <string>

#include <QApplication>
#include <QPixmapCache>
#include <glib.h>

#include "app/AppDelegate.h"
#include "platform/linux/EnvironmentWhile.h"
#include "platform/linux/LaunchArguments.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/Log.h"
#include "platform/linux/OpenedSession.h"
#include "platform/linux/ReturnOfSession.h"
#include "platform/linux/SelfCheckRun.h"
#include "platform/linux/UnixSignals.h"
#include "platform/linux/appearance/ColorScheme.h"
#include "platform/linux/control/ControlService.h"
#include "platform/linux/dbus/SessionBus.h"
#include "platform/linux/localization/Translations.h"
#include "platform/linux/qt/ProgramIcon.h"
#include "platform/linux/qt/TemplateIcon.h"
#include "platform/linux/session/WaylandNotice.h"
#include "platform/linux/text-input/IBusTextInput.h"

namespace {

constexpr const char* inputMethodVariable = "QT_IM_MODULE";

bool usesIBus() {
    return qgetenv(inputMethodVariable) == "ibus";
}

/// How QApplication is to find the environment.
struct EnvironmentOfToolkit {
    quorvane::EnvironmentWhile platform;
    // Session managers start what is connected to them again at login, whatever the user chose, and without
    // the argument that keeps the window closed then. An agent that starts by its login item needs none.
    quorvane::EnvironmentWhile sessionManager{"SESSION_MANAGER", std::nullopt};
    // IBus' plugin for Qt waits for the daemon, and everything here would with it while the daemon hangs. So
    // this program's own windows use IBus in a way of their own.
    std::optional<quorvane::EnvironmentWhile> inputMethod;

    explicit EnvironmentOfToolkit(const char* display) : platform("QT_QPA_PLATFORM", display) {
        if (usesIBus()) inputMethod.emplace(inputMethodVariable, "compose");
    }
};

int runProgram(const quorvane::OpenedSession& session, const quorvane::LaunchArguments& arguments) {
    auto& instance = session.instance();
    using enum quorvane::SingleInstance::IfAnotherRuns;
    if (arguments.isNewInstance) instance.waitForTheOtherToEnd();
    if (!instance.becomeTheOne(arguments.isAtLogin || arguments.isAfterCompositor ? leaveIt : askItToReopen))
        return 0;

    const quorvane::ColorScheme colorScheme(session.x());
    quorvane::LinuxDesktop linuxDesktop(session.start());
    auto& application = linuxDesktop.application();
    const quorvane::UnixSignals signals([&application] { application.terminate(); });
    const auto sessionLoss = session.onLost([&application] { application.terminate(); });
    quorvane::Subscription compositorLoss;
    if (!session.x()) {
        compositorLoss = quorvane::beforeToolkitGivesUp([&linuxDesktop] {
            linuxDesktop.saveSettings();
            quorvane::startAnewAfterCompositor();
        });
    }

    quorvane::AppDelegate program(linuxDesktop.desktop());
    if (arguments.pausedUntil) program.controlled().pause.pauseUntil(*arguments.pausedUntil);
    quorvane::AgentCommands commands(linuxDesktop.desktop(), linuxDesktop.report(), program.controlled());
    const quorvane::ControlService controlService(quorvane::sessionBus(), commands);
    // Until the reminder is answered, it is what the user is shown who launches the program again; the window
    // comes then.
    bool hasLaunched = false;
    bool isAskedToReopen = arguments.opensPreferences;
    instance.onReopen([&] {
        isAskedToReopen = true;
        if (hasLaunched)
            program.applicationShouldHandleReopen(false);
        else
            application.activateIgnoringOtherApps();
    });
    // From within the event loop, so that the program can be told to end while the reminder is up.
    const auto start = [&] {
        program.applicationDidFinishLaunching();
        hasLaunched = true;
        if (isAskedToReopen) program.applicationShouldHandleReopen(false);
    };
    QMetaObject::invokeMethod(qApp, start, Qt::QueuedConnection);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    const quorvane::LaunchArguments arguments(std::span<const char* const>(argv + 1, argv + argc));
    if (!arguments.unknown.empty()) {
        quorvane::logLine("unknown argument: " + arguments.unknown);
        return 2;
    }
    if (arguments.asksForHelp || arguments.asksForVersion) {
        std::fputs(arguments.asksForHelp ? quorvane::usage : "quorvane " QUORVANE_VERSION "\n", stdout);
        return 0;
    }
    // GLib wakes its threads to end them when they have been idle for a while; it may let them sleep.
    g_thread_pool_set_max_idle_time(0);
    if (arguments.isAfterCompositor && !quorvane::waitForReturnOfSession()) return 0;
    const auto kind = quorvane::sessionThere();
    // Logged in English: no translation is there yet.
    if (kind == quorvane::SessionKind::otherWayland)
        quorvane::logLine(quorvane::waylandNotice().toStdString());
    // Qt ends the process where it finds no display.
    if (!quorvane::hasDisplay(kind)) {
        quorvane::logLine("no X server: DISPLAY names none that can be reached");
        return 1;
    }
    quorvane::Subscription earlyLoss;
    if (!quorvane::isOfX11(kind) && !arguments.asksForSelfCheck)
        earlyLoss = quorvane::beforeToolkitGivesUp(quorvane::startAnewAfterCompositor);
    std::optional<EnvironmentOfToolkit> environment(std::in_place, quorvane::toolkitPlatform(kind));
    QApplication qt(argc, argv);
    environment.reset();
    QApplication::setApplicationName(QStringLiteral("Quorvane"));
    QApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    QApplication::setWindowIcon(
        quorvane::programIcon(quorvane::iconOfTemplate(quorvane::QtImages().imageNamed("menuBarIcon"))));
    QApplication::setQuitOnLastWindowClosed(false);
    std::optional<quorvane::IBusTextInput> textInput;
    if (usesIBus()) textInput.emplace();
    // Its timer would wake an idle program half a minute after a picture was drawn, to free a few pixels.
    QPixmapCache::setCacheLimit(0);

    quorvane::installTranslations();

    const auto session = quorvane::OpenedSession::open(kind);
    if (!session) {
        quorvane::logLine("the display has refused the connection");
        return 1;
    }
    return arguments.asksForSelfCheck ? quorvane::runSelfCheck(*session) : runProgram(*session, arguments);
}
