// Settings that several processes and the user's editor share.

#include "contracts/UserDefaultsContract.h"
#include "linux/defaults/SettingsFolder.h"

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
    SettingsFolder folder_;
    LinuxUserDefaults stores_{folder_.path(), own}, otherProgram_{folder_.path(), "org.example.other"};
};

INSTANTIATE_TEST_SUITE_P(Files, UserDefaultsContract,
                         testing::Values([] { return std::make_unique<LinuxUserDefaultsBench>(); }));

struct LinuxUserDefaultsTest : testing::Test {
    SettingsFolder folder_;
    LinuxUserDefaults stores_{folder_.path(), "suite"};
    StandardUserDefaults& standard_ = stores_.standardUserDefaults();
};

TEST_F(LinuxUserDefaultsTest, ProcessesThatWriteAtOnceLoseNothing) {
    QProcess others[3];
    constexpr auto script =
        R"(for i in $(seq 25); do "$0" defaults write suite %1-$i -int $i || exit 1; done)";
    for (int process = 0; process < 3; ++process)
        others[process].start("sh", {"-c", QString(script).arg(process), QUORVANECTL});
    int written = 0;
    for (auto& other : others) {
        while (other.state() != QProcess::NotRunning) {
            ++written;
            standard_.setObject(written, "own-" + std::to_string(written));
            stores_.flushPendingWrites();
            other.waitForFinished(1);
        }
        EXPECT_EQ(other.exitCode(), 0);
    }
    EXPECT_TRUE(waitUntil([&] { return standard_.synchronize(); }));
    const auto contents = folder_.contents();
    for (int i = 1; i <= 25; ++i)
        for (int process = 0; process < 3; ++process)
            EXPECT_EQ(contents[std::to_string(process) + "-" + std::to_string(i)], PropertyList(i));
    for (int i = 1; i <= written; ++i)
        EXPECT_EQ(contents["own-" + std::to_string(i)], PropertyList(i));
}

TEST_F(LinuxUserDefaultsTest, OnlyKeysWithAnotherValueAreTold) {
    std::vector<std::string> told;
    const auto remember = [&](std::string_view key) { told.emplace_back(key); };
    const auto a = standard_.addObserver("a", remember);
    const auto b = standard_.addObserver("b", remember);
    standard_.setObject("own", "a");
    ASSERT_TRUE(standard_.synchronize());
    EXPECT_EQ(SettingsFolder::tool({"write", "suite", "a", "-string", "own"}), 0);
    const auto* rule = "<dict><key>id</key><string>xkb:ru</string></dict>";
    EXPECT_EQ(SettingsFolder::tool({"dict-add", "suite", "b", "org.example.editor", "-xml", rule}), 0);
    EXPECT_TRUE(waitUntil([&] { return told.size() == 2; }));
    EXPECT_THAT(told, testing::ElementsAre("a", "b"));
    EXPECT_EQ(standard_.objectForKey("b")["org.example.editor"]["id"], PropertyList("xkb:ru"));
    EXPECT_EQ(SettingsFolder::tool({"dict-remove", "suite", "b", "org.example.editor"}), 0);
    EXPECT_TRUE(waitUntil([&] { return told.size() == 3; }));
    EXPECT_EQ(standard_.objectForKey("b"), PropertyList(PropertyList::Dictionary{}));
}

TEST_F(LinuxUserDefaultsTest, ReadsAFileOnceHoweverOftenItIsOpened) {
    PropertyList::Dictionary rules;
    for (int i = 0; i < 10000; ++i)
        rules["org.example." + std::to_string(i)] = i;
    LinuxUserDefaults(folder_.path(), "suite").standardUserDefaults().setObject(rules, "rules");
    const auto first = stores_.initWithSuiteName("suite")->objectForKey("rules");
    standard_.setObject(1, "other key");
    stores_.flushPendingWrites();
    const auto second = stores_.initWithSuiteName("suite")->objectForKey("rules");
    EXPECT_EQ(second.dictionary()->size(), 10000U);
    EXPECT_EQ(first.dictionary(), second.dictionary()); // the very same object
}

TEST_F(LinuxUserDefaultsTest, WhatOthersWroteComesBackAsItWas) {
    const QByteArrayList others{"<key>k</key>\n\t<date>1801-01-02T03:04:05Z</date>",
                                "<key>l</key>\n\t<integer>18446744073709551615</integer>",
                                "<key>m</key>\n\t<data>\n\tAAEC\n\t</data>",
                                "<key>n</key>\n\t<array>\n\t\t<dict>\n\t\t\t<key>CF$UID</key>\n\t\t\t"
                                "<integer>7</integer>\n\t\t</dict>\n\t\t<real>0.10000000000000001</real>\n\t"
                                "</array>"};
    folder_.save(SettingsFolder::dictionary(others.join()));
    standard_.setObject(true, "own");
    ASSERT_TRUE(standard_.synchronize());
    EXPECT_TRUE(folder_.bytes().contains("<key>own</key>"));
    for (const auto& other : others)
        EXPECT_TRUE(folder_.bytes().contains(other)) << other.toStdString();
    EXPECT_EQ(std::filesystem::status(folder_.file().toStdString()).permissions(),
              std::filesystem::perms(0600));
    EXPECT_EQ(std::filesystem::status(folder_.path()).permissions(), std::filesystem::perms(0700));
}

TEST_F(LinuxUserDefaultsTest, AFolderThatComesBackIsWatchedAgain) {
    std::filesystem::remove_all(folder_.path());
    EXPECT_TRUE(standard_.objectForKey("key").isNothing());
    int told = 0;
    const auto subscription = standard_.addObserver("key", [&](auto) { ++told; });
    EXPECT_EQ(SettingsFolder::tool({"write", "suite", "key", "-int", "1"}), 0);
    EXPECT_TRUE(waitUntil([&] { return told == 1; }));
    EXPECT_EQ(SettingsFolder::tool({"delete", "suite", "key"}), 0);
    EXPECT_TRUE(waitUntil([&] { return told == 2; }));
}

} // namespace
} // namespace quorvane
