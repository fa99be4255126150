// Commands, and what they say, do and let follow.

#include <sstream>

#include <gmock/gmock.h>

#include "control/AgentCommands.h"
#include "control/CommandText.h"
#include "control/Duration.h"
#include "control/ShortcutText.h"
#include "support/ProgramTest.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

struct Report : DesktopReport {
    std::vector<InstalledApplication> installedApplications() const override {
        return {{"org.kde.kate", "Kate"}, {"org.kde.kwrite", "KWrite"}, {"org.maker.Ru", "Ru"}};
    }
    std::string recognition() const override { return "its window"; }
    std::string inputSourceProvider() const override { return "the simulation"; }
    std::string settingsTrouble() const override { return trouble; }

    std::string trouble;
};

class CommandsTest : public ProgramTest {
protected:
    CommandsTest() {
        desktop_.inputSources.names = {{"us", "English (US)"}, {"ru", "Russian"}, {"de", "German"}};
        desktop_.inputSources.enable({.id = "palette", .category = InputSourceCategory::other});
        desktop_.inputSources.enable({.id = "ru:phonetic"});
        desktop_.inputSources.names["ru:phonetic"] = "Russian (phonetic)";
        desktop_.applicationBundles.paths = {{"tool", "/bin/tool"}, {"k", "/bin/k"}};
        launch();
        agent_.emplace(desktop_.desktop, report_, program_->controlled());
        desktop_.journal.ignore("list all");
    }
    /// What the tool prints, with the status before it unless all went well. Words are parted by spaces.
    std::string ask(const std::string& line, const PropertyList& document = {}) {
        std::istringstream stream(line);
        std::string command;
        stream >> command;
        CommandRequest request{{}, document};
        for (std::string word; stream >> word;)
            request.arguments.push_back(word);
        const auto result = agent_->run(command, request);
        const auto status = static_cast<int>(result.status);
        return (status ? std::to_string(status) + ": " : "") +
               textOfResult(command, result, {.isAligned = false, .timeText = [](double time) {
                                                  return std::to_string(static_cast<long>(time - 1.7e9));
                                              }});
    }

    Report report_;
    std::optional<AgentCommands> agent_;
};

TEST_F(CommandsTest, Say) {
    play("ru.app 1 runs:org.maker.Ru | ");
    const std::pair<const char*, const char*> cases[] = {
        {"sources",
         "us\tEnglish (US)\t\nru\tRussian\tcurrent\nde\tGerman\t\nru:phonetic\tRussian (phonetic)\t\n"},
        {"apps", "ru.app\tru.app\trunning\norg.maker.Ru\torg.maker.Ru\trunning\norg.kde.kate\tKate\t\n"
                 "org.kde.kwrite\tKWrite\t\ncom.apple.Spotlight\tcom.apple.Spotlight\t\n"},
        {"why", "ru.app: Russian (ru), by its rule\n"},
        {"why kate",
         "Kate (org.kde.kate): nothing applies: it has no rule, and there is no default source\n"},
        {"why spotlight", "com.apple.Spotlight: German (de), by the launcher's rule\n"},
        {"why k",
         "2: application \"k\" may mean several\n  Kate (org.kde.kate)\n  KWrite (org.kde.kwrite)\n"},
        {"why ORG.KDE.kwrite",
         "KWrite (org.kde.kwrite): nothing applies: it has no rule, and there is no default source\n"},
        {"why nobody", "2: unknown application \"nobody\"\n"},
        {"why a b", "2: why takes an application\n"},
        {"rule kate", "none\n"},
        {"rule", "2: rule takes an application and a source\n"},
        {"rule kate Klingon", "2: unknown input source \"Klingon\"\n"},
        {"rule kate palette", "2: unknown input source \"palette\"\n"},
        {"default", "none\n"},
        {"default Greek", "2: unknown input source \"Greek\"\n"},
        {"shortcut Russian", "none\n"},
        {"shortcut Russian R", "2: R is no hot key; write it like Ctrl+Alt+R\n"},
        {"shortcut palette none", "2: unknown input source \"palette\"\n"},
        {"select", "2: select takes a source\n"},
        {"pause forever", "2: forever is no duration; write it like 90s, 10m or 2h\n"},
        {"import", "1: these are no settings of Quorvane, or those of a later version\n"},
        {"import --now", "2: import does not know --now\n"},
        {"dance", "2: dance is no command\n"},
        {"status",
         "in front\tru.app, known by its window\nwanted\tRussian (ru), by its rule\ncurrent\tRussian "
         "(ru)\nsources from\tthe simulation\nswitching\ton\nsettings\tsaved\nhot keys\tnone "
         "refused\nswitches\t1\n"},
    };
    for (const auto& [line, said] : cases)
        EXPECT_EQ(ask(line), said) << line;
    EXPECT_THAT(desktop_.journal.take(), ElementsAre());

    desktop_.hotKeys.takeFromOutside({15, ModifierFlag::control | ModifierFlag::option});
    ask("shortcut Russian Ctrl+Alt+R");
    ask("default German");
    ask("pause 90s");
    report_.trouble = "no room";
    play("nameless companion | ");
    EXPECT_EQ(
        ask("status"),
        "in front\tnobody with an identifier\nwanted\tGerman (de), the default source: it has no rule of its "
        "own\ncurrent\tRussian (ru)\nsources from\tthe simulation\nswitching\tpaused until "
        "90\ncompanion\truns: "
        "it is asked, and decides by place\nsettings\tno room\nhot keys\tanother program has that of Russian "
        "(ru)\nswitches\t1\n");
    ask("pause");
    EXPECT_THAT(ask("status"), testing::HasSubstr("switching\tpaused\n"));
    EXPECT_THAT(ask("why"),
                testing::EndsWith("decides by place.\nSwitching is paused: quorvanectl resume\n"));
    EXPECT_EQ(ask("shortcut ru"), "Ctrl+Alt+R, which another program has: it works once that gives it up\n");
}

TEST_F(CommandsTest, ChangeWhatIsSetAndHaveItCountAtOnce) {
    play("first.app 1 | ");
    const auto rulesAre = [](const std::string& rules) {
        return "own autoInput = {" + rules + "}; suite autoInput = {" + rules +
               "}; synchronize suite; synchronize own";
    };
    const std::string kate = "org.kde.kate: {id: 'ru'}";
    standard_.setObject(PropertyList::Array{"tool"}, key::orderOfAppsRule);
    const struct {
        const char *line, *said;
        std::string follows; ///< At once.
    } cases[] = {
        {"rule KATE russian", "Russian (ru)\n", rulesAre(kate)},
        {"rule tool de", "German (de)\n", rulesAre(kate + ", tool: {id: 'de'}")},
        {"rules", "tool\ttool\tde\tGerman\norg.kde.kate\tKate\tru\tRussian\n", ""},
        {"rule kate none", "none\n", rulesAre("org.kde.kate: {}, tool: {id: 'de'}")},
        {"rules", "tool\ttool\tde\tGerman\n", ""},
        {"default German", "German (de)\n", "own defaultInput = 'de'; synchronize own"},
        {"default none", "none\n", "own defaultInput = none; synchronize own"},
        {"shortcut german ctrl+alt+d", "Ctrl+Alt+D\n",
         "own shortcutOfInput = {de: {keyCode: 2, modifierFlags: 786432}}; synchronize own; register 2 "
         "0xc0000"},
        {"shortcut de none", "none\n", "own shortcutOfInput = {}; synchronize own; unregister 2 0xc0000"},
        {"select german", "", switchTo("de")},
        {"select german", "", ""},
    };
    for (const auto& [line, said, follows] : cases) {
        desktop_.journal.take();
        EXPECT_EQ(ask(line), said) << line;
        const auto lines = desktop_.journal.take();
        EXPECT_EQ(lines.empty() ? "" : lines.front(), follows.empty() ? "" : "0 " + follows) << line;
    }
    standard_.setObject("gone", key::defaultInput);
    EXPECT_EQ(ask("rule kate gone"), "gone\n") << "it is in use";
    EXPECT_EQ(ask("why kate"),
              "Kate (org.kde.kate): gone, which is not among the sources now, by its rule\n");
    play("companion | ");
    EXPECT_EQ(ask("select us"), "");
    EXPECT_EQ(shared(key::askTandrelSwitchInput), PropertyList("us")) << "as a hot key does";
}

TEST_F(CommandsTest, ImportAndTellWhatChanged) {
    standard_.setObject(PropertyList::Dictionary{{"de", PropertyList::Dictionary{{"keyCode", 122}}},
                                                 {"us", PropertyList::Dictionary{{"keyCode", 120}}}},
                        key::shortcutOfInput);
    play("launch first.app 1 | ");
    agent_.emplace(desktop_.desktop, report_, program_->controlled());
    const PropertyList document = PropertyList::Dictionary{
        {"quorvane", 1},
        {"rules", PropertyList::Dictionary{{"x", PropertyList::Dictionary{{"id", "ru"}}}}},
        {"shortcuts", PropertyList::Dictionary{{"de", PropertyList::Dictionary{{"keyCode", 99}}}}}};
    const std::string changes = "+\trules x\t{id: ru}\n~\tshortcuts de\t{keyCode: 122} -> {keyCode: 99}\n";
    desktop_.journal.take();
    EXPECT_EQ(ask("import --dry-run", document), changes);
    EXPECT_THAT(desktop_.journal.take(), ElementsAre());
    EXPECT_EQ(ask("import", document), changes);
    EXPECT_THAT(
        desktop_.journal.take(),
        ElementsAre("0 own autoInput = {x: {id: 'ru'}}; suite autoInput = {x: {id: 'ru'}}; synchronize "
                    "suite; own shortcutOfInput = {de: {keyCode: 99}, us: {keyCode: 120}}; synchronize own; "
                    "unregister 122 0x0; register 99 0x0"));
}

TEST_F(CommandsTest, PauseSwitchingAndTellEachDecision) {
    std::string told;
    const auto telling = agent_->decided.connect([&](const PropertyList& decision) {
        told += textOfDecision(decision, {.isAligned = false, .timeText = [](double) { return "now"; }});
    });
    desktop_.clock.tick = 0.25;
    play("first.app 1 ru.app 1 | ");
    ask("pause 10");
    EXPECT_EQ(play("| de.app 5"), Lines{});
    ask("pause 10");
    EXPECT_EQ(play("| 9.9 1"), Lines{"10.1 " + switchTo("de", "ru", 2)})
        << "ten seconds after the last word, and the usual delay";
    ask("pause");
    EXPECT_EQ(play("| ru.app 50 front:com.apple.Spotlight 1"), Lines{});
    ask("resume");
    ask("resume");
    EXPECT_EQ(told, "now\tfirst.app\tnothing applies\t-\tnothing\t250.00 ms\n"
                    "now\tru.app\trule\tru\tswitched\t250.00 ms\n"
                    "now\tde.app\trule\tde\tpaused\t250.00 ms\n"
                    "now\tde.app\trule\tde\tswitched\t250.00 ms\n"
                    "now\tru.app\trule\tru\tpaused\t250.00 ms\n"
                    "now\tcom.apple.Spotlight\tlauncher's rule\tde\tis current\t250.00 ms\n"
                    "now\tcom.apple.Spotlight\tlauncher's rule\tde\tis current\t250.00 ms\n");
}

TEST(KeyCombinations, AreReadAndWritten) {
    const std::pair<const char*, std::optional<InputShortcut>> cases[] = {
        {"Ctrl+Alt+R", InputShortcut{15, 0xc0000}},
        {"Shift+Super+F5", InputShortcut{0x60, 0x120000}},
        {"F20", InputShortcut{0x5a, 0}},
        {"Super+=", InputShortcut{0x18, 0x100000}},
        {"Ctrl+#93", InputShortcut{93, 0x40000}},
    };
    for (const auto& [text, shortcut] : cases) {
        EXPECT_EQ(shortcutOfText(text), shortcut) << text;
        EXPECT_EQ(textOfShortcut(*shortcut), text);
    }
    EXPECT_EQ(shortcutOfText("cmd+CONTROL+pageup"), (InputShortcut{0x74, 0x140000}));
    for (const auto* text :
         {"", "A", "Ctrl+", "Ctrl", "Hyper+A", "Ctrl+AB", "Ctrl++", "Ctrl+#", "Ctrl+#1x", "Ctrl+#-1"})
        EXPECT_EQ(shortcutOfText(text), std::nullopt) << text;
}

TEST(Tables, AreAlignedForTheEye) {
    const auto row = [](const char* id, const char* name, bool isCurrent) -> PropertyList {
        return PropertyList::Dictionary{{"identifier", id}, {"name", name}, {"isCurrent", isCurrent}};
    };
    const CommandResult sources{CommandStatus::done,
                                PropertyList::Array{row("a", "中文", true), row("bcd", "É", true)}};
    EXPECT_EQ(textOfResult("sources", sources, {}), "a    中文  current\nbcd  É     current\n");
}

TEST(Durations, AreRead) {
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"90", 90}, {"90s", 90}, {"10m", 600}, {"2h", 7200}, {"", {}},     {"h", {}},
        {"0s", {}}, {"-1", {}},  {"1.5h", {}}, {"1d", {}},   {"9999h", {}}};
    for (const auto& [text, seconds] : cases)
        EXPECT_EQ(secondsOfText(text), seconds) << text;
}

} // namespace
} // namespace quorvane
