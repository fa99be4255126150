#include <QProcess>

#include "contracts/TextInputSourcesContract.h"
#include "platform/linux/keyboard/LayoutInputSources.h"
#include "platform/linux/x11/keyboard/XkbKeyboard.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {
namespace {

XkbLayout layout(const char* name, const char* variant = "") {
    return {name, variant};
}

TEST(XkbLayouts, AreWhatTheMapSaysAndNotWhatSomebodyDeclared) {
    // clang-format off
    const struct {
        const char* what;
        XkbMapDescription map;
        std::vector<XkbLayout> layouts;
    } cases[] = {
        {"declared and true",
         {3, "pc+us+ru(phonetic):2+de:3+inet(evdev)+group(alt_shift_toggle)", "us,ru,de", ",phonetic,", {}},
         {layout("us"), layout("ru", "phonetic"), layout("de")}},
        {"more declared than the map can hold",
         {4, "pc+us+ru:2+de:3+fr:4+inet(evdev)", "us,ru,de,fr,gr", ",,,,", {}},
         {layout("us"), layout("ru"), layout("de"), layout("fr")}},
        {"another map was loaded since", {1, "pc+fr+inet(evdev)", "us,ru", ",", {}}, {layout("fr")}},
        {"the variant is another one", {1, "pc+de(neo)+inet(evdev)", "de", "", {}}, {layout("de", "neo")}},
        {"nothing declared", {2, "pc+us+il:2", "", "", {}}, {layout("us"), layout("il")}},
        {"with a bar for a plus", {1, "pc|us|inet(evdev)", "", "", {}}, {layout("us")}},
        {"without symbols' names", {2, "", "", "", {"English", "Mine"}}, {layout("English"), layout("Mine")}},
        {"nothing at all", {2, "", "us,ru", ",", {}}, {layout(""), layout("")}},
        {"no groups", {0, "pc+us", "us", "", {"English"}}, {}},
        {"malformed", {1, "((:(+:+", ",,,", "x", {"Name"}}, {layout("Name")}},
    };
    // clang-format on
    for (const auto& expected : cases)
        EXPECT_EQ(layoutsOfGroups(expected.map), expected.layouts) << expected.what;
    EXPECT_EQ(layout("ru", "phonetic").id(), "xkb:ru:phonetic");
}

/// The program's view of a new X server, and that of its user.
struct XkbSession {
    XServer server;
    bool hasLayouts = XServer::setLayouts("us,ru,de", ",,neo");
    std::unique_ptr<XConnection> x = XConnection::open(), userX = XConnection::open();
    XkbKeyboard user{*userX};
    std::vector<std::string> drawn;
    XkbKeyboard keyboard{*x};
    LayoutInputSources sources{keyboard, [this](const std::string& letters) {
                                   drawn.push_back(letters);
                                   return nullptr;
                               }};
};

class XkbBench : public TextInputSourcesBench {
public:
    TextInputSources& sources() override { return session_.sources; }
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }
    int changesTold() const override { return changes_; }
    void selectFromOutside(const std::string& id) override { session_.user.lockGroup(unsigned(place(id))); }
    void disable(const std::string& id) override {
        const auto gone = place(id);
        layouts_.removeAt(gone);
        variants_.removeAt(gone);
        EXPECT_TRUE(XServer::setLayouts(layouts_.join(','), variants_.join(',')));
    }

private:
    qsizetype place(const std::string& id) const {
        return layouts_.indexOf(QString::fromStdString(id).split(':').at(1));
    }

    QStringList layouts_{"us", "ru", "de"}, variants_{"", "", "neo"};
    XkbSession session_;
    int changes_ = 0;
    Subscription counting_ = session_.sources.selectionChanged.connect([this] { ++changes_; });
};

INSTANTIATE_TEST_SUITE_P(Xkb, TextInputSourcesContract,
                         testing::Values([] { return std::make_unique<XkbBench>(); }));

class LayoutInputSourcesTest : public testing::Test, protected XkbSession {
protected:
    bool waitForIds(const std::vector<std::string>& wanted) {
        return waitUntil([&] { return idsOf(sources.createInputSourceList()) == wanted; });
    }
    /// What the server itself says.
    bool waitForGroup(unsigned group) {
        return waitUntil([&] {
            user.readGroup();
            return user.effectiveGroup() == group;
        });
    }
};

TEST_F(LayoutInputSourcesTest, TheSelectedLayoutKeepsItsSelectionInAnotherList) {
    ASSERT_TRUE(sources.selectInputSource({.id = "xkb:de:neo"}));
    ASSERT_TRUE(waitForGroup(2));
    ASSERT_TRUE(XServer::setLayouts("fr,de", ",neo")); // The server keeps the third group, which is none.
    ASSERT_TRUE(waitForIds({"xkb:fr", "xkb:de:neo"}));
    EXPECT_TRUE(waitForGroup(1));
    ASSERT_TRUE(XServer::setLayouts("us,ru,fr", ",,"));
    ASSERT_TRUE(waitForIds({"xkb:us", "xkb:ru", "xkb:fr"}));
    EXPECT_TRUE(waitForGroup(1)) << "gone from the list: the server's choice stands";
    EXPECT_EQ(currentIdIn(sources), "xkb:ru");
    ASSERT_TRUE(sources.selectInputSource({.id = "xkb:fr"}));
    EXPECT_TRUE(waitForGroup(2));
}

TEST_F(LayoutInputSourcesTest, AMapLoadedPastTheDeclaredLayoutsIsSeenForWhatItIs) {
    EXPECT_EQ(QProcess::execute("sh", {"-c", "setxkbmap -layout fr -print | xkbcomp -w0 - $DISPLAY"}), 0);
    EXPECT_TRUE(waitForIds({"xkb:fr"}));
    ASSERT_TRUE(XServer::setLayouts("us,ru,de,fr,gr", ",,,,"));
    EXPECT_TRUE(waitForIds({"xkb:us", "xkb:ru", "xkb:de", "xkb:fr"})) << "four is all that a server can hold";
}

TEST_F(LayoutInputSourcesTest, NamesAndLettersComeFromTheLayoutDatabase) {
    EXPECT_EQ(sources.localizedName({.id = "xkb:us"}), "English (US)");
    EXPECT_EQ(sources.localizedName({.id = "xkb:de:neo"}), "German (Neo 2)");
    EXPECT_EQ(sources.localizedName({.id = "xkb:gone"}), "xkb:gone");
    for (const auto* id : {"xkb:us", "xkb:ru", "xkb:de:neo", "xkb:gone"})
        sources.iconOfReference({.id = id});
    EXPECT_THAT(drawn, testing::ElementsAre("EN", "RU", "DE"));
}

} // namespace
} // namespace quorvane
