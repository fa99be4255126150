#include <QGuiApplication>
#include <gtest/gtest.h>

#include "virtual-desktop/OrdinaryUser.h"

/// For tests that start compositors, which refuse to run for root. Their own windows are those of other
/// programs.
int main(int count, char** arguments) {
    quorvane::becomeOrdinaryUser();
    testing::InitGoogleTest(&count, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    qunsetenv("QT_QPA_PLATFORM");
    return RUN_ALL_TESTS();
}
