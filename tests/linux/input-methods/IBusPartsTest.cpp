// What IBus' files, settings and calls mean, without a daemon.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/input-methods/ibus/IBusAddress.h"
#include "platform/linux/input-methods/ibus/IBusEngines.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

TEST(IBusAddress, IsFoundLikeIBusClientsFindIt) {
    EXPECT_EQ(ibusAddressFileName("id", ":12.3"), "id-unix-12");
    EXPECT_EQ(ibusAddressFileName("id", "far.away:10.0"), "id-far.away-10");
    EXPECT_EQ(ibusAddressFileName("id", ""), "id-unix-0");
    EXPECT_EQ(ibusAddressFileName("id", "wayland-1"), "id-unix-wayland-1");
    EXPECT_EQ(ibusAddressIn("# IBUS_ADDRESS=no\nIBUS_ADDRESS=unix:path=/a,guid=1\nIBUS_DAEMON_PID=7\n"),
              "unix:path=/a,guid=1");
    for (const auto* contents : {"", "\n\n", "IBUS_ADDRESS", "IBUS_ADDRESS=\n", "\xff IBUS_ADDRESS=a"})
        EXPECT_EQ(ibusAddressIn(contents), "");
}

GVariantRef parsed(const std::string& text) {
    return GVariantRef(g_variant_ref_sink(g_variant_new_parsed(text.c_str())));
}

std::string described(const std::string& name, unsigned rank = 0) {
    return "<('IBusEngineDesc', @a{sv} {}, '" + name + "', '', '', 'zh_CN', '', '', '', '', uint32 " +
           std::to_string(rank) + ")>";
}

std::vector<std::string> namesOf(const std::vector<IBusEngine>& engines) {
    std::vector<std::string> names;
    for (const auto& engine : engines)
        names.push_back(engine.name);
    return names;
}

TEST(IBusEngines, OfWhatTheBusListsTheReadableOnesAreTaken) {
    const std::string pinyin =
        "<('IBusEngineDesc', @a{sv} {}, 'libpinyin', 'Intelligent Pinyin', '', 'zh_CN', 'GPL', '', '/icon', "
        "'default', uint32 99, '', '拼', '', '', '', '', 'domain', '', 'from a newer version')>";
    const std::string list = "[" + pinyin + "," + pinyin +
                             ", <('IBusEngineDesc', @a{sv} {}, '', 'without a name')>, <('IBusEngineDesc',)>"
                             ", <('IBusComponent', @a{sv} {}, 'another', '')>, <'text'>, <(3, 4, 5)>"
                             ", <<('IBusEngineDesc', @a{sv} {}, 'short', uint32 1)>>]";
    const auto engines =
        enabledEngines(parsed(list).get(), {"short", "", "another", "libpinyin", "short"}, {});
    ASSERT_TRUE(engines);
    ASSERT_THAT(namesOf(*engines), ElementsAre("short", "libpinyin"));
    const auto& engine = engines->back();
    EXPECT_THAT(
        (std::vector{engine.longName, engine.language, engine.icon, engine.symbol, engine.textDomain}),
        ElementsAre("Intelligent Pinyin", "zh_CN", "/icon", "拼", "domain"));
    EXPECT_EQ(idOfEngine("m17n:zh:py"), "ibus:m17n:zh:py");
    EXPECT_EQ(idOfEngine("xkb:"), "ibus:xkb:");
    EXPECT_FALSE(enabledEngines(parsed("'no list'").get(), {}, {}));
    EXPECT_FALSE(enabledEngines(nullptr, {}, {}));
}

TEST(IBusEngines, AreTheUsersElseTheLayouts) {
    const auto installed = parsed("[" + described("xkb:us::eng") + "," + described("xkb:ru::rus") + "," +
                                  described("xkb:be::ger", 1) + "," + described("xkb:be::fra", 1) + "," +
                                  described("xkb:fr::fra", 1) + "," + described("xkb:fr::oci", 2) + "," +
                                  described("hangul") + "]");
    const struct {
        std::vector<std::string> names, layoutIDs, engines;
    } cases[] = {
        {{"hangul", "xkb:ru::rus", "gone", "xkb:us::eng"},
         {"xkb:us"},
         {"hangul", "xkb:ru::rus", "xkb:us::eng"}},
        {{"xkb:be::ger", "xkb:be::fra", "hangul", "hangul"}, {}, {"xkb:be::ger", "hangul"}},
        {{"gone"}, {"xkb:ru", "xkb:cz", "xkb:us"}, {"xkb:ru::rus", "xkb:us::eng"}},
        {{}, {"xkb:be", "xkb:fr"}, {"xkb:be::fra", "xkb:fr::oci"}},
        {{}, {}, {}},
    };
    for (const auto& [names, layoutIDs, expected] : cases)
        EXPECT_EQ(namesOf(*enabledEngines(installed.get(), names, layoutIDs)), expected);
}

} // namespace
} // namespace quorvane
