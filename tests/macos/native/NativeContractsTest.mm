// The contracts of the ports that need no permission and no second user, on the real services.

#include <cstdio>
#include <cstdlib>

#include "contracts/DistributedNotificationCenterContract.h"
#include "contracts/UserDefaultsContract.h"
#include "macos/native/RunLoopWait.h"
#import "platform/macos/foundation/MacDistributedNotifications.h"
#import "platform/macos/foundation/MacUserDefaults.h"
#import "platform/macos/foundation/PropertyListBridge.h"

namespace quorvane {
namespace {

class MacNotificationsBench : public DistributedNotificationCenterBench {
public:
    DistributedNotificationCenter& center() override { return center_; }
    void postFromOutside(const DistributedNotification& notification) override { center_.post(notification); }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }

private:
    MacDistributedNotifications center_;
};

/// The other program is the system's own command-line tool.
class MacDefaultsBench : public UserDefaultsBench {
public:
    UserDefaultsStores& stores() override { return stores_; }
    void writeFromOutside(const std::string& suite, const std::string& key, PropertyList value) override {
        if (const auto* text = value.string())
            run("write " + named(suite) + " '" + key + "' -string '" + *text + "'");
        else
            run("delete " + named(suite) + " '" + key + "'");
    }
    PropertyList readFromOutside(const std::string& suite, const std::string& key) override {
        stores_.flushPendingWrites();
        const auto xml = outputOf("export " + named(suite) + " -");
        NSData* data = [NSData dataWithBytes:xml.data() length:xml.size()];
        return fromNSObject([NSPropertyListSerialization propertyListWithData:data
                                                                      options:NSPropertyListImmutable
                                                                       format:nullptr
                                                                        error:nil])[key];
    }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }

private:
    static std::string ownDomain() { return fromNSString(NSProcessInfo.processInfo.processName); }
    static std::string named(const std::string& suite) { return suite.empty() ? ownDomain() : suite; }
    static void run(const std::string& arguments) { outputOf(arguments + " 2>&1"); }
    static std::string outputOf(const std::string& arguments) {
        std::string output;
        FILE* pipe = popen(("/usr/bin/defaults " + arguments).c_str(), "r");
        if (!pipe) return output;
        for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
            output += static_cast<char>(byte);
        pclose(pipe);
        return output;
    }

    static std::string emptiedDomain() {
        for (const auto* domain : {"", "group.suite", "group.other"})
            run("delete " + named(domain));
        return ownDomain();
    }

    MacUserDefaults stores_{emptiedDomain()};
};

INSTANTIATE_TEST_SUITE_P(Mac, DistributedNotificationCenterContract,
                         testing::Values([]() -> std::unique_ptr<DistributedNotificationCenterBench> {
                             return std::make_unique<MacNotificationsBench>();
                         }));
INSTANTIATE_TEST_SUITE_P(Mac, UserDefaultsContract,
                         testing::Values([]() -> std::unique_ptr<UserDefaultsBench> {
                             return std::make_unique<MacDefaultsBench>();
                         }));

} // namespace
} // namespace quorvane
