#include "contracts/UserDefaultsContract.h"

#include <QTemporaryDir>

#include "linux/support/WaitUntil.h"
#include "platform/linux/defaults/LinuxUserDefaults.h"

namespace quorvane {
namespace {

/// Another program is a second set of stores on the same folder: they share nothing but the files.
class LinuxUserDefaultsBench : public UserDefaultsBench {
public:
    UserDefaultsStores& stores() override { return stores_; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }
    void writeFromOutside(const std::string& suite, const std::string& key, PropertyList value) override {
        const auto defaults = open(suite);
        defaults->setObject(std::move(value), key);
        EXPECT_TRUE(defaults->synchronize());
    }
    PropertyList readFromOutside(const std::string& suite, const std::string& key) override {
        return open(suite)->objectForKey(key);
    }

private:
    std::unique_ptr<UserDefaults> open(const std::string& suite) {
        return otherProgram_.initWithSuiteName(suite.empty() ? own : suite);
    }

    static constexpr auto own = "org.example.test";
    QTemporaryDir folder_;
    LinuxUserDefaults stores_{folder_.path().toStdString(), own};
    LinuxUserDefaults otherProgram_{folder_.path().toStdString(), "org.example.other"};
};

INSTANTIATE_TEST_SUITE_P(Files, UserDefaultsContract,
                         testing::Values([] { return std::make_unique<LinuxUserDefaultsBench>(); }));

} // namespace
} // namespace quorvane
