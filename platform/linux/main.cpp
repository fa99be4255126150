#include <algorithm>
#include <functional>
#include <optional>
#include <string_view>

#include <QApplication>
#include <QPixmapCache>

#include "app/AppDelegate.h"
#include "platform/linux/LaunchArguments.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/Log.h"
#include "platform/linux/UnixSignals.h"
#include "platform/linux/appearance/ColorScheme.h"
#include "platform/linux/input-methods/ibus/IBusTextInput.h"
#include "platform/linux/localization/Translations.h"
#include "platform/linux/qt/TemplateIcon.h"
#include "platform/linux/x11/SingleInstance.h"

namespace {

constexpr const char* inputMethodVariable = "QT_IM_MODULE";

/// Qt ends the process where it finds no display, so it is looked for first.
bool hasDisplay() {
    auto* connection = xcb_connect(nullptr, nullptr);
    const bool works = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return works;
}

int runProgram(quorvane::XConnection& x, const std::function<bool(const char*)>& isTold) {
    quorvane::SingleInstance instance(x);
    if (isTold(quorvane::launch_argument::newInstance)) instance.waitForTheOtherToEnd();
    if (!instance.becomeTheOne()) {
        if (!isTold(quorvane::launch_argument::atLogin)) instance.askTheOtherToReopen();
        return 0;
    }

    const quorvane::ColorScheme colorScheme(x);
    quorvane::LinuxDesktop linuxDesktop(x);
    auto& application = linuxDesktop.application();
    const quorvane::UnixSignals signals([&application] { application.terminate(); });
    const auto serverLoss = x.onLost([&application] { application.terminate(); });

    quorvane::AppDelegate program(linuxDesktop.desktop());
    // From within the event loop, so that the program can be told to end while the reminder is up.
    const auto start = [&program, &instance] {
        program.applicationDidFinishLaunching();
        instance.onReopen([&program] { program.applicationShouldHandleReopen(false); });
    };
    QMetaObject::invokeMethod(qApp, start, Qt::QueuedConnection);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    if (!hasDisplay()) {
        quorvane::logLine("no X server: DISPLAY names none that can be reached");
        return 1;
    }
    // In a Wayland session Qt would choose Wayland, where this program has no windows to look after.
    qputenv("QT_QPA_PLATFORM", "xcb");
    // IBus' plugin for Qt waits for the daemon, and everything here would with it while the daemon hangs. So
    // this program's own windows use IBus in a way of their own; programs started from here get the variable
    // as it was.
    const auto inputMethod = qgetenv(inputMethodVariable);
    if (inputMethod == "ibus") qputenv(inputMethodVariable, "compose");
    QApplication qt(argc, argv);
    if (inputMethod == "ibus") qputenv(inputMethodVariable, inputMethod);
    QApplication::setApplicationName(QStringLiteral("Quorvane"));
    QApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    QApplication::setWindowIcon(quorvane::iconOfTemplate(quorvane::QtImages().imageNamed("menuBarIcon")));
    QApplication::setQuitOnLastWindowClosed(false);
    std::optional<quorvane::IBusTextInput> textInput;
    if (inputMethod == "ibus") textInput.emplace();
    // Its timer would wake an idle program half a minute after a picture was drawn, to free a few pixels.
    QPixmapCache::setCacheLimit(0);

    quorvane::installTranslations();

    const auto x = quorvane::XConnection::open();
    if (!x) {
        quorvane::logLine("no X server: the connection was refused");
        return 1;
    }
    return runProgram(*x, [argc, argv](std::string_view wanted) {
        return std::find(argv + 1, argv + argc, wanted) != argv + argc;
    });
}
