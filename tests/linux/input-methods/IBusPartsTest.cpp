// What IBus' files, settings and calls mean, without a daemon.

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
    EXPECT_EQ(ibusAddressFileName("id", ":0"), "id-unix-0");
    EXPECT_EQ(ibusAddressFileName("id", ":12.3"), "id-unix-12");
    EXPECT_EQ(ibusAddressFileName("id", "far.away:10.0"), "id-far.away-10");
    EXPECT_EQ(ibusAddressFileName("id", ""), "id-unix-0");
    EXPECT_EQ(ibusAddressIn("# IBUS_ADDRESS=no\nIBUS_ADDRESS=unix:path=/a,guid=1\nIBUS_DAEMON_PID=7\n"),
              "unix:path=/a,guid=1");
    for (const auto* contents : {"", "\n\n", "IBUS_ADDRESS", "IBUS_ADDRESS=\n", "\xff IBUS_ADDRESS=a"})
        EXPECT_EQ(ibusAddressIn(contents), "");
}

TEST(IBusEngines, HaveTheIdsOfLayoutsAndOfInputMethods) {
    const struct {
        const char* engine;
        const char* id;
    } cases[] = {
        {"xkb:us::eng", "xkb:us"},       {"xkb:ru:phonetic:rus", "xkb:ru:phonetic"},
        {"libpinyin", "ibus:libpinyin"}, {"m17n:zh:py", "ibus:m17n:zh:py"},
        {"xkb:", "ibus:xkb:"},           {"xkb:fr", "xkb:fr"},
    };
    for (const auto& expected : cases)
        EXPECT_EQ(idOfEngine(expected.engine), expected.id);
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
    watch.called(now);
    EXPECT_FALSE(watch.answered(now += milliseconds(80)));
    EXPECT_FALSE(watch.nextDue());

    watch.called(now); // The slow call.
    for (int pings = 0; pings < 5; ++pings) {
        EXPECT_TRUE(nextIs(AnswerWatch::Due::ping));
        watch.called(now);
        EXPECT_FALSE(watch.answered(now += milliseconds(20)));
    }
    const auto begin = now;
    EXPECT_TRUE(nextIs(AnswerWatch::Due::ping));
    watch.called(now);
    EXPECT_TRUE(nextIs(AnswerWatch::Due::silence));
    EXPECT_EQ(now - begin, AnswerWatch::patience);
    EXPECT_FALSE(watch.nextDue()) << "it may last";
    watch.called(now += milliseconds(5000));
    EXPECT_FALSE(watch.nextDue());
    EXPECT_TRUE(watch.heard(now));
    EXPECT_FALSE(watch.answered(now)) << "ended already";
    EXPECT_TRUE(watch.nextDue()) << "two calls are open";
}

/// Written down as it goes: what is called, and after each event the current engine.
struct SelectionLog {
    std::vector<std::string> calls;
    IBusSelection selection{{.set = [this](const auto& engine) { calls.push_back(engine); },
                             .ask = [this] { calls.emplace_back("?"); }}};

    std::string current() const { return selection.current().value_or("none"); }
    void start(const char* engine) {
        selection.ask();
        selection.askAnswered(engine);
        calls.clear();
    }
};

TEST(IBusSelection, IsWhatWasLastWishedFor) {
    SelectionLog log;
    EXPECT_EQ(log.current(), "none");
    log.start("us");
    log.selection.select("ru");
    for (const auto* engine : {"pinyin", "hangul", "de"})
        log.selection.select(engine);
    EXPECT_THAT(log.calls, ElementsAre("ru"));
    EXPECT_EQ(log.current(), "de");
    log.selection.setAnswered(true);
    EXPECT_THAT(log.calls, ElementsAre("ru", "de"));
    log.selection.select("de");
    log.selection.setAnswered(true);
    EXPECT_THAT(log.calls, ElementsAre("ru", "de")) << "there already";
    EXPECT_FALSE(log.selection.isUnderWay());
    EXPECT_EQ(log.current(), "de");
}

TEST(IBusSelection, NewsThatMayBeOldAreAskedAbout) {
    SelectionLog log;
    log.start("us");
    log.selection.heard("us");
    EXPECT_THAT(log.calls, ElementsAre());
    log.selection.heard("ru");
    log.selection.heard("de"); // Both before the answer.
    log.selection.askAnswered("ru");
    log.selection.askAnswered("de");
    EXPECT_THAT(log.calls, ElementsAre("?", "?"));
    EXPECT_EQ(log.current(), "de");

    log.calls.clear();
    log.selection.heard("us");
    log.selection.select("ru");
    log.selection.askAnswered("us"); // From before the call.
    log.selection.heard("ru");
    EXPECT_EQ(log.current(), "ru");
    log.selection.setAnswered(true);
    EXPECT_THAT(log.calls, ElementsAre("?", "ru"));
    log.selection.select("de");
    log.selection.heard("us"); // Before or after the call took effect.
    log.selection.setAnswered(true);
    log.selection.askAnswered("us");
    EXPECT_THAT(log.calls, ElementsAre("?", "ru", "de", "?"));
    EXPECT_EQ(log.current(), "us");
}

TEST(IBusSelection, AfterARefusalItIsWhatTheDaemonSays) {
    SelectionLog log;
    log.start("us");
    log.selection.select("gone");
    log.selection.setAnswered(false);
    EXPECT_EQ(log.current(), "us");
    log.selection.askAnswered("ru");
    EXPECT_EQ(log.current(), "ru");
    log.selection.select("gone");
    log.selection.select("de");
    log.selection.setAnswered(false);
    EXPECT_THAT(log.calls, ElementsAre("gone", "?", "gone", "de"));
}

TEST(IBusSelection, AnEngineThatDiedIsSetAgainUnlessAnotherIsWished) {
    SelectionLog log;
    log.selection.restoreIfGone();
    log.selection.askAnswered(std::nullopt);
    EXPECT_THAT(log.calls, ElementsAre("?")) << "there never was one";
    log.start("pinyin");
    log.selection.restoreIfGone();
    log.selection.askAnswered("pinyin");
    log.selection.restoreIfGone();
    log.selection.askAnswered(std::nullopt);
    EXPECT_THAT(log.calls, ElementsAre("?", "?", "pinyin"));
    log.selection.setAnswered(false); // It cannot start any more.
    log.selection.askAnswered(std::nullopt);
    EXPECT_THAT(log.calls, ElementsAre("?", "?", "pinyin", "?"));

    log.start("pinyin");
    log.selection.restoreIfGone();
    log.selection.select("us");
    log.selection.askAnswered(std::nullopt);
    log.selection.setAnswered(true);
    EXPECT_THAT(log.calls, ElementsAre("?", "us"));
    log.selection.forget();
    EXPECT_EQ(log.current(), "none");
}

} // namespace
} // namespace quorvane
