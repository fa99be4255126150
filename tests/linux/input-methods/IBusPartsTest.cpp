// What IBus' files, settings and calls mean, without a daemon.

#include <iterator>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/input-methods/ibus/AnswerWatch.h"
#include "platform/linux/input-methods/ibus/IBusAddress.h"
#include "platform/linux/input-methods/ibus/IBusEnabledEngines.h"
#include "platform/linux/input-methods/ibus/IBusSelection.h"

namespace quorvane {
namespace {

using std::chrono::milliseconds;
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

TEST(IBusEngines, OfWhatTheBusListsTheReadableOnesAreTaken) {
    const std::string pinyin =
        "<('IBusEngineDesc', @a{sv} {}, 'libpinyin', 'Intelligent Pinyin', '', 'zh_CN', 'GPL', '', '/icon', "
        "'default', uint32 99, '', '拼', '', '', '', '', 'domain', '', 'from a newer version')>";
    const std::string list = "[" + pinyin + "," + pinyin +
                             ", <('IBusEngineDesc', @a{sv} {}, '', 'without a name')>, <('IBusEngineDesc',)>"
                             ", <('IBusComponent', @a{sv} {}, 'another', '')>, <'text'>, <(3, 4, 5)>"
                             ", <<('IBusEngineDesc', @a{sv} {}, 'short', uint32 1)>>]";
    const auto engines = IBusEngines::ofList(parsed(list).get());
    ASSERT_TRUE(engines && engines->named("libpinyin") && engines->named("short"));
    const auto& engine = *engines->named("libpinyin");
    EXPECT_THAT(
        (std::vector{engine.longName, engine.language, engine.icon, engine.symbol, engine.textDomain}),
        ElementsAre("Intelligent Pinyin", "zh_CN", "/icon", "拼", "domain"));
    EXPECT_EQ(engines->withID("ibus:libpinyin"), &engine);
    EXPECT_EQ(idOfEngine("m17n:zh:py"), "ibus:m17n:zh:py");
    EXPECT_EQ(idOfEngine("xkb:"), "ibus:xkb:");
    for (const auto* missing : {"", "another", "text"})
        EXPECT_FALSE(engines->named(missing)) << missing;
    EXPECT_FALSE(IBusEngines::ofList(parsed("'no list'").get()));
    EXPECT_FALSE(IBusEngines::ofList(nullptr));
}

TEST(IBusEnabledEngines, AreTheUsersElseTheDesktopsElseTheLayoutsAndTheLanguages) {
    std::vector<IBusEngine> described;
    for (const auto* layout : {"xkb:us::eng", "xkb:us:intl:eng", "xkb:ru::rus", "xkb:be::ger", "xkb:be::fra"})
        described.push_back({.name = layout, .language = "zh", .rank = 100});
    described.push_back({.name = "libpinyin", .language = "zh_CN", .rank = 99});
    described.push_back({.name = "pinyin", .language = "zh_CN", .rank = 9});
    described.push_back({.name = "hangul", .language = "ko", .rank = 99});
    described.push_back({.name = "unranked", .language = "vi"});
    const IBusEngines installed(described);
    using Settings = IBusEnabledSettings;
    const struct {
        Settings settings;
        std::vector<std::string> engines;
    } cases[] = {
        {Settings{
             {"hangul", "xkb:ru::rus", "gone", "xkb:us::eng"}, {{"ibus", "pinyin"}}, {"xkb:us"}, "zh_CN"},
         {"hangul", "xkb:ru::rus", "xkb:us::eng"}},
        {Settings{{"xkb:be::fra", "xkb:be::ger", "hangul", "hangul"}, {}, {}, ""}, {"xkb:be::fra", "hangul"}},
        {Settings{{"gone"},
                  {{"xkb", "us+intl"}, {"xkb", "us"}, {"ibus", "libpinyin"}, {"new", "x"}, {"xkb", "gone"}},
                  {},
                  ""},
         {"xkb:us:intl:eng", "xkb:us::eng", "libpinyin"}},
        {Settings{{}, {}, {"xkb:ru", "xkb:fr", "xkb:us"}, "zh_CN.UTF-8"},
         {"xkb:ru::rus", "xkb:us::eng", "libpinyin"}},
        {Settings{{}, {}, {"xkb:be"}, "ko_KR.UTF-8@x"}, {"xkb:be::fra", "hangul"}},
        {Settings{{}, {}, {"xkb:us"}, "vi_VN"}, {"xkb:us::eng"}},
        {Settings{{}, {}, {}, "C"}, {}},
    };
    for (const auto& expected : cases) {
        std::vector<std::string> names;
        for (const auto* engine : enabledEngines(installed, expected.settings))
            names.push_back(engine->name);
        EXPECT_EQ(names, expected.engines);
    }
}

TEST(AnswerWatch, TellsSilenceFromACallThatTakesLong) {
    AnswerWatch watch;
    auto now = AnswerWatch::Time();
    const auto nextIs = [&](AnswerWatch::Due due) {
        if (!watch.nextDue()) return false;
        now = *watch.nextDue();
        return watch.timePassed(now - milliseconds(1)) == AnswerWatch::Due::nothing &&
               watch.timePassed(now) == due;
    };
    EXPECT_FALSE(watch.nextDue()) << "nothing to wait for";
    watch.called(now); // The slow call.
    for (int pings = 0; pings < 3; ++pings) {
        EXPECT_TRUE(nextIs(AnswerWatch::Due::ping));
        watch.called(now);
        EXPECT_FALSE(watch.answered(now += milliseconds(20)));
    }
    const auto begin = now;
    EXPECT_TRUE(nextIs(AnswerWatch::Due::ping));
    watch.called(now);
    EXPECT_TRUE(nextIs(AnswerWatch::Due::silence));
    EXPECT_EQ(now - begin, AnswerWatch::patience);
    watch.called(now += milliseconds(5000));
    EXPECT_FALSE(watch.nextDue()) << "it may last";
    EXPECT_TRUE(watch.heard(now));
    EXPECT_FALSE(watch.answered(now)) << "ended already";
    EXPECT_TRUE(watch.nextDue()) << "two calls are open";
}

TEST(IBusSelection, IsWhatWasLastWishedForElseWhatTheDaemonSays) {
    // In the order in which it goes: `=` wishes, answered with `+` or `-`; `!` answers a question, with
    // nothing if there is no engine; `~` is heard; `r`estore if gone; `f`orget.
    const struct {
        const char *events, *calls, *current;
    } cases[] = {
        {"", "", "us"},
        {"=ru =pinyin =hangul =de +", "ru de", "de"},
        {"=ru =de + =de +", "ru de", "de"}, // There already.
        {"~us", "", "us"},
        {"~ru ~de !ru !de", "? ?", "de"},    // Both before the answer.
        {"~de =ru !de ~ru +", "? ru", "ru"}, // From before the call.
        {"=de ~us + !us", "de ?", "us"},     // Before or after the call took effect.
        {"=gone - !ru", "gone ?", "ru"},
        {"=gone =de -", "gone de", "de"},
        {"r !us r !", "? ? us", "us"},
        {"r ! - !", "? us ?", "us"}, // It cannot start any more.
        {"r =ru ! +", "? ru", "ru"},
        {"=ru r + !", "ru ? ru", "ru"}, // It may have died before the answer is read.
        {"f r !", "?", "none"},         // There never was one.
    };
    for (const auto& expected : cases) {
        std::vector<std::string> calls;
        IBusSelection selection{{.set = [&](const auto& engine) { calls.push_back(engine); },
                                 .ask = [&] { calls.emplace_back("?"); }}};
        selection.ask();
        selection.askAnswered("us");
        calls.clear();
        std::istringstream events(expected.events);
        for (std::string event; events >> event;) {
            const auto engine = event.substr(1);
            if (event[0] == '=') selection.select(engine);
            if (event[0] == '~') selection.heard(engine);
            if (event[0] == '!') selection.askAnswered(engine.empty() ? std::nullopt : std::optional(engine));
            if (event == "+" || event == "-") selection.setAnswered(event == "+");
            if (event == "r") selection.restoreIfGone();
            if (event == "f") selection.forget();
        }
        std::istringstream wanted(expected.calls);
        EXPECT_EQ(calls, std::vector(std::istream_iterator<std::string>(wanted), {})) << expected.events;
        EXPECT_EQ(selection.current().value_or("none"), expected.current) << expected.events;
    }
}

} // namespace
} // namespace quorvane
