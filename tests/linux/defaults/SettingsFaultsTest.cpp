// Damage, editors in the middle of saving, held locks, full disks and folders that cannot be written.

#include <QCoreApplication>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>

#include "linux/defaults/SettingsFolder.h"

namespace quorvane {
namespace {

const QByteArray good = SettingsFolder::dictionary("<key>key</key><string>good</string>");
const QByteArray newer = SettingsFolder::dictionary("<key>key</key><string>newer</string>");

class SettingsFaultsTest : public testing::Test {
protected:
    /// The settings of a program that finds these contents.
    StandardUserDefaults& open(const QByteArray& contents) {
        stores_.reset();
        folder_.save(contents);
        return stores_.emplace(folder_.path(), "suite").standardUserDefaults();
    }

    SettingsFolder folder_;
    std::optional<LinuxUserDefaults> stores_;
};

TEST_F(SettingsFaultsTest, AFileDamagedAtTheStartIsLeftAloneUntilAWriteSetsItAside) {
    testing::internal::CaptureStderr();
    const QByteArray damages[] = {"", "no property list", good.left(good.size() / 2),
                                  "<plist><array/></plist>", R"({"key": "JSON"})"};
    std::vector<std::string> places;
    for (const auto& damage : damages) {
        auto& standard = open(damage);
        EXPECT_TRUE(standard.objectForKey("key").isNothing());
        EXPECT_NE(SettingsFolder::tool({"read", "suite", "key"}), 0);
        EXPECT_TRUE(standard.synchronize());
        EXPECT_EQ(folder_.bytes(), damage);
        standard.setObject("new", "key");
        EXPECT_TRUE(waitUntil([&] { return standard.synchronize(); }));
        places.push_back(places.empty() ? "suite.plist.damaged"
                                        : "suite.plist.damaged-" + std::to_string(places.size() + 1));
        EXPECT_EQ(folder_.bytes(QString::fromStdString(places.back())), damage);
        EXPECT_THAT(stores_->health().setAside(), testing::ElementsAre(folder_.path() / places.back()));
        EXPECT_EQ(folder_.contents(), (PropertyList::Dictionary{{"key", "new"}}));
        std::filesystem::remove(folder_.path() / "suite.plist.saved");
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::HasSubstr("suite.plist is damaged: set aside as suite.plist.damaged-4"));
}

TEST_F(SettingsFaultsTest, AHalfSavedFileIsLeftToItsEditor) {
    auto& standard = open(good);
    std::vector<PropertyList> told;
    const auto subscription = standard.addObserver(
        "key", [&](std::string_view key) { told.push_back(standard.objectForKey(key)); });
    folder_.save(newer.left(newer.size() / 2));
    EXPECT_EQ(standard.objectForKey("key"), PropertyList("good"));
    QCoreApplication::processEvents(); // what is to be written back can wait
    folder_.save(newer);
    EXPECT_TRUE(waitUntil([&] { return !told.empty(); }));
    EXPECT_THAT(told, testing::ElementsAre("newer"));
    EXPECT_FALSE(QFile::exists(folder_.file("suite.plist.damaged")));
}

TEST_F(SettingsFaultsTest, WhoHoldsGoodContentsWritesThemBack) {
    auto& standard = open(good);
    int told = 0;
    const auto subscription = standard.addObserver("key", [&](auto) { ++told; });
    folder_.save("damaged");
    EXPECT_NE(SettingsFolder::tool({"read", "suite", "key"}), 0); // as others see it
    EXPECT_EQ(folder_.bytes(), "damaged");
    EXPECT_EQ(standard.objectForKey("key"), PropertyList("good"));
    EXPECT_TRUE(waitUntil([&] { return folder_.bytes() != "damaged"; }));
    EXPECT_EQ(folder_.contents(), (PropertyList::Dictionary{{"key", "good"}}));
    EXPECT_EQ(folder_.bytes("suite.plist.damaged"), "damaged");
    EXPECT_EQ(told, 0);
}

TEST_F(SettingsFaultsTest, TheVersionLastSavedForSureReplacesADamagedOne) {
    open(good).setObject(1, "own");
    EXPECT_TRUE(stores_->standardUserDefaults().synchronize());
    stores_->standardUserDefaults().setObject(2, "own");
    const PropertyList::Dictionary saved{{"key", "good"}, {"own", 1}};
    auto& standard = open("");
    EXPECT_EQ(standard.stringForKey("key"), "good");
    EXPECT_TRUE(waitUntil([&] { return !folder_.bytes().isEmpty(); }));
    EXPECT_EQ(folder_.contents(), PropertyList(saved));
    stores_.reset();
    folder_.save("damaged");
    EXPECT_EQ(SettingsFolder::tool({"write", "suite", "own", "-int", "3"}), 0);
    EXPECT_EQ(folder_.contents(), PropertyList(saved).with("own", 3));
}

TEST_F(SettingsFaultsTest, WhatNoFileCouldBeReadBackWithIsRefused) {
    PropertyList nested = PropertyList::Array{};
    for (int depth = 1; depth < 256; ++depth)
        nested = PropertyList::Array{nested};
    const struct {
        const char* key;
        PropertyList value;
    } refused[] = {{"key", nested},
                   {"key", std::string(std::size_t{17} << 20, 'x')},
                   {"key", "\x01"},
                   {"key", std::string(1, '\0')},
                   {"key", "half a character: \xC3"},
                   {"key", PropertyList::Dictionary{{"\xEF\xBF\xBE", 1}}},
                   {"key\x7F\xFF", 1}};
    auto& standard = open(good);
    int told = 0;
    const auto subscription = standard.addObserver("key", [&](auto) { ++told; });
    testing::internal::CaptureStderr();
    for (const auto& [key, value] : refused) {
        for (int time = 0; time < 2; ++time)
            standard.setObject(value, key);
        EXPECT_TRUE(standard.synchronize());
        EXPECT_EQ(folder_.contents(), (PropertyList::Dictionary{{"key", "good"}}));
        EXPECT_EQ(standard.stringForKey("key"), "good");
    }
    EXPECT_EQ(told, 0);
    const auto lines = QString::fromStdString(testing::internal::GetCapturedStderr()).trimmed().split('\n');
    EXPECT_EQ(lines.size(), 4); // one for each reason and key
    EXPECT_EQ(SettingsFolder::tool({"write", "suite", "key", "-string", "\x01"}), 1);
    EXPECT_EQ(SettingsFolder::tool({"delete", "suite", "missing"}), 1);
    EXPECT_EQ(SettingsFolder::tool({"dict-remove", "suite", "key", "missing"}), 1);
    EXPECT_EQ(folder_.contents(), (PropertyList::Dictionary{{"key", "good"}}));
    standard.setObject(*nested.array()->begin(), "key");
    EXPECT_TRUE(standard.synchronize());
    EXPECT_EQ(folder_.contents()["key"], *nested.array()->begin());
}

TEST_F(SettingsFaultsTest, AHeldLockDelaysWritesAndNothingElse) {
    auto& standard = open(good);
    FileDescriptor holder(::open(folder_.file("suite.plist.lock").toUtf8(), O_RDWR | O_CREAT, 0600));
    ASSERT_EQ(::flock(holder.number(), LOCK_EX), 0);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 20; ++i) {
        standard.setObject("waiting", "key");
        EXPECT_FALSE(standard.synchronize());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(standard.objectForKey("key"), PropertyList("waiting"));
    EXPECT_EQ(folder_.bytes(), good);
    QCoreApplication::processEvents(); // the flush at the end of the turn is over, too
    holder = FileDescriptor();
    EXPECT_TRUE(waitUntil([&] { return folder_.bytes().contains("waiting"); }));
}

TEST_F(SettingsFaultsTest, WithoutAFolderSettingsLastAsLongAsTheProgram) {
    testing::internal::CaptureStderr();
    for (const auto* folder : {"", "/dev/null/quorvane"}) {
        LinuxUserDefaults stores(folder, "suite");
        auto& standard = stores.standardUserDefaults();
        standard.setObject("kept", "key");
        EXPECT_FALSE(standard.synchronize());
        stores.initWithSuiteName("other")->setObject("kept", "key");
        EXPECT_EQ(stores.initWithSuiteName("other")->stringForKey("key"), "kept");
        EXPECT_EQ(standard.stringForKey("key"), "kept");
    }
    const auto lines = QString::fromStdString(testing::internal::GetCapturedStderr()).trimmed().split('\n');
    EXPECT_EQ(lines.size(), 2); // one for each folder
}

} // namespace
} // namespace quorvane
