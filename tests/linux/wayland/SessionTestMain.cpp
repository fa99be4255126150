#include <QGuiApplication>
#include <gtest/gtest.h>

#include "virtual-desktop/OrdinaryUser.h"

/// For tests of sessions in this process: each has a compositor of its own, and the toolkit, which can change
/// its display as little as it needs one here, has none.
int main(int count, char** arguments) {
    quorvane::becomeOrdinaryUser(arguments);
    testing::InitGoogleTest(&count, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    qunsetenv("QT_QPA_PLATFORM");
    return RUN_ALL_TESTS();
}
