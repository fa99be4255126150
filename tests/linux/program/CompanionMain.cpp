// Stands in for the companion application: owns its name on the session bus and prints, for every request to
// switch, the input source it finds in the shared suite, and the requests to start and stop the setup. Every
// line it reads is the name of a location that the user has marked.

#include <cstdio>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QSocketNotifier>
#include <unistd.h>

#include "platform/linux/dbus/DBusNotificationCenter.h"
#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/Keys.h"
#include "settings/Maker.h"
#include "settings/SharedDefaults.h"

namespace {

using namespace quorvane;

void addLocation(LinuxUserDefaults& stores, const std::string& name) {
    const auto shared = openSharedDefaults(stores);
    const auto stored = shared->objectForKey(key::arrOfLocationInfo);
    auto locations = stored.array() ? *stored.array() : PropertyList::Array{};
    locations.push_back(PropertyList::Dictionary{
        {"BundleIdentifier", "First"}, {"Name", name}, {"Kind", "the companion's own"}});
    shared->setObject(std::move(locations), key::arrOfLocationInfo);
}

} // namespace

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
    QSocketNotifier marks(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&marks, &QSocketNotifier::activated, &application, [&] {
        char line[100];
        const auto size = read(STDIN_FILENO, line, sizeof line);
        marks.setEnabled(size > 0);
        if (size > 1) addLocation(stores, {line, static_cast<std::size_t>(size) - 1});
        notifications.post({"AddLocationInfoByTandrel", {}});
    });
    const std::string name(maker::companionBundleIdentifier);
    if (!QDBusConnection::sessionBus().registerService(QString::fromStdString(name))) return 1;
    std::printf("ready\n");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
