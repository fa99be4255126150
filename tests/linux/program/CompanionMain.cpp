// Stands in for the companion application: owns its name on the session bus and prints, for every request to
// switch, the input source it finds in the shared suite, and the requests to start and stop the setup.

#include <cstdio>

#include <QCoreApplication>
#include <QDBusConnection>

#include "platform/linux/dbus/DBusNotificationCenter.h"
#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/Keys.h"
#include "settings/Maker.h"
#include "settings/SharedDefaults.h"

using namespace quorvane;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    LinuxUserDefaults stores(LinuxUserDefaults::configFolder(), maker::companionBundleIdentifier);
    DBusNotificationCenter notifications(maker::distributedNotificationInterface,
                                         [&stores] { stores.flushPendingWrites(); });
    const auto requests = notifications.addObserver("AskTandrelSwitchInput", [&stores](const auto&) {
        const auto wanted = openSharedDefaults(stores)->stringForKey(key::askTandrelSwitchInput);
        std::printf("%s\n", wanted.value_or("nothing").c_str());
        std::fflush(stdout);
    });
    std::vector<Subscription> setUps;
    for (const char* each : {"StartSetUpSwitchInputByLocation", "StopSetUpSwitchInputByLocation"}) {
        setUps.push_back(notifications.addObserver(each, [each](const auto&) {
            std::puts(each);
            std::fflush(stdout);
        }));
    }
    const std::string name(maker::companionBundleIdentifier);
    if (!QDBusConnection::sessionBus().registerService(QString::fromStdString(name))) return 1;
    std::printf("ready\n");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
