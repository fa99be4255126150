#include <QGuiApplication>
#include <gtest/gtest.h>

#include "virtual-desktop/OrdinaryUser.h"

/// Compositors refuse to run for root, and the session asks the toolkit about screens.
int main(int count, char** arguments) {
    quorvane::becomeOrdinaryUser(arguments);
    testing::InitGoogleTest(&count, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    qunsetenv("QT_QPA_PLATFORM");
    return RUN_ALL_TESTS();
}
