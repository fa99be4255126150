#include <QApplication>
#include <QDBusConnection>
#include <gtest/gtest.h>

#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/SessionBus.h"
#include "virtual-desktop/XServer.h"

/// For tests with windows of their own process: Qt must find the desktop when it starts, so this program
/// makes one and runs itself on it.
int main(int count, char** arguments) {
    constexpr auto onDesktop = "QUORVANE_TEST_IS_ON_DESKTOP";
    if (!qEnvironmentVariableIsSet(onDesktop)) {
        const QCoreApplication application(count, arguments);
        const quorvane::ScratchFolders folders;
        const quorvane::XServer server("us");
        const quorvane::WindowManager manager("openbox");
        const quorvane::SessionBus bus;
        qputenv(onDesktop, "1");
        qputenv("QT_QPA_PLATFORM", "xcb");
        return QProcess::execute(arguments[0], QCoreApplication::arguments().mid(1));
    }
    testing::InitGoogleTest(&count, arguments);
    const QApplication application(count, arguments);
    QDBusConnection::sessionBus(); // It stays, also for tests with folders of their own.
    return RUN_ALL_TESTS();
}
