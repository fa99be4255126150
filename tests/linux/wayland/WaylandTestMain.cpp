#include <QCoreApplication>
#include <gtest/gtest.h>

#include "virtual-desktop/OrdinaryUser.h"

/// For tests that start compositors, which refuse to run for root.
int main(int count, char** arguments) {
    quorvane::becomeOrdinaryUser(arguments);
    testing::InitGoogleTest(&count, arguments);
    const QCoreApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
