// Plays a story on a virtual Wayland desktop and prints, for each step, what happened to the layout, and what
// typing then gives: quorvane-wayland-demo sway|kwin|gnome. Exits 0 only if all of it was right. Pictures are
// saved in $QUORVANE_PICTURES, or else where it is started.

#include <cstdio>
#include <functional>
#include <list>
#include <map>
#include <thread>

#include <QCoreApplication>

#include "platform/linux/demo/LauncherOfStage.h"
#include "virtual-desktop/OrdinaryUser.h"
#include "virtual-desktop/WaitUntil.h"
#include "virtual-desktop/WaylandTextProgram.h"

namespace {

using namespace quorvane;
using namespace std::chrono_literals;
using Toolkit = TextCommand::Toolkit;

constexpr auto pauseBetween = 400ms; // so that somebody can watch

/// A word, and the keys that type it in its layout.
struct Word {
    const char* text;
    std::vector<std::uint8_t> keys;
};
const std::map<std::string, Word> words{{"xkb:us", {"hello", {43, 26, 46, 46, 32}}},
                                        {"xkb:ru", {"привет", {42, 43, 56, 40, 28, 57}}},
                                        {"xkb:de", {"größe", {42, 27, 47, 20, 26}}}};

class Program {
public:
    Program(Stage& stage, Toolkit toolkit, const QString& name, const std::string& id, std::string rule,
            const QRect& place)
        : source(std::move(rule))
        , name_(name)
        , program_((stage.session().setRule(id, source), stage.server()), toolkit, name) {
        stage.place(name, place);
    }

    const std::string source; ///< Of its rule.

    std::string name() const { return name_.toStdString(); }
    bool activate() { return program_.activate(); }
    void expect(const QString& text) { expected_ += text; }
    bool hasWhatIsExpected() {
        return waitUntil([this] { return program_.typed() == expected_; });
    }
    QString typed() { return program_.typed(); }

private:
    QString name_;
    WaylandTextProgram program_;
    QString expected_;
};

std::list<Program> openPrograms(Stage& stage) {
    std::list<Program> programs;
    programs.emplace_back(stage, Toolkit::qt, "Letters", "Letters", "xkb:ru", QRect(740, 80, 480, 100));
    programs.emplace_back(stage, Toolkit::xim, "XTerm", "debian-xterm", "xkb:us", QRect(740, 280, 480, 130));
    // foot ends on KWin without a screen, which tells no rate at which it is refreshed.
    const auto toolkit = stage.isKWin() ? Toolkit::qt : Toolkit::foot;
    const auto* const name = stage.isKWin() ? "Briefe" : "foot";
    programs.emplace_back(stage, toolkit, name, name, "xkb:de", QRect(740, 510, 480, 130));
    return programs;
}

class Story {
public:
    explicit Story(Stage& stage) : stage_(stage) {}

    /// `doing` has to bring the source, and what is typed then has to arrive in the program.
    void show(const std::string& what, const std::string& wanted, const std::function<bool()>& doing,
              Program& program) {
        const auto before = stage_.source();
        bool isRight = doing() && stage_.waitForSource(wanted);
        const auto& word = words.at(wanted);
        type(word);
        type({"", {space}});
        program.expect(word.text);
        isRight = program.hasWhatIsExpected() && isRight;
        line(what, wanted, before, isRight, isRight ? word.text : program.typed().toStdString());
    }

    void type(const Word& word) {
        for (const auto key : word.keys)
            stage_.server().type({key});
    }

    void heading(const char* what) { line(what, "wanted", "before", std::nullopt, "typed"); }

    void line(const std::string& what, const std::string& wanted, const std::string& before,
              std::optional<bool> isRight, const std::string& typed) {
        const auto after = isRight ? stage_.source() : "after";
        char text[256];
        std::snprintf(text, sizeof text, "%-18s %-8s %-8s %-8s %s%s", what.c_str(), wanted.c_str(),
                      before.c_str(), after.c_str(), typed.c_str(), isRight.value_or(true) ? "" : "  WRONG");
        stage_.print(text);
        if (!isRight.value_or(true)) isAllRight = false;
        std::this_thread::sleep_for(pauseBetween);
    }

    bool isAllRight = true;

private:
    static constexpr std::uint8_t space = 65;

    Stage& stage_;
};

/// `afterwards`: of the rule of the program in front.
void showLauncher(Stage& stage, Story& story, const std::string& afterwards, const QString& picture) {
    const std::string inLauncher = "xkb:us";
    LauncherOfStage launcher(stage);
    stage.session().setRule(launcher.id(), inLauncher);
    const auto name = std::string(launcher.name());
    const auto before = stage.source();
    launcher.open();
    const bool isOpened = stage.waitForSource(inLauncher);
    story.line(name + " is opened", inLauncher, before, isOpened, "");
    story.type(words.at(inLauncher));
    stage.savePicture(picture);
    const auto typed = launcher.close().toStdString();
    const bool isClosed = stage.waitForSource(afterwards) && typed == words.at(inLauncher).text;
    story.line(name + " is closed", afterwards, inLauncher, isClosed, typed);
}

bool play(const std::string& compositor) {
    const auto picture = QString::fromStdString("demo-" + compositor + "%1.png");
    Stage stage(compositor);
    constexpr auto ofHotKey = "xkb:de";
    stage.addHotKey(ofHotKey, "Ctrl+Alt+R");
    auto programs = openPrograms(stage);
    Story story(stage);

    story.heading("front application");
    for (int round = 0; round < 3; ++round) {
        for (auto& program : programs)
            story.show(
                program.name(), program.source, [&] { return program.activate(); }, program);
    }

    stage.print("");
    story.heading("what happens");
    auto& first = programs.front();
    story.show(
        first.name(), first.source, [&] { return first.activate(); }, first);
    stage.savePicture(picture.arg(""));
    // Held until then: a virtual keyboard tells sway the layout with the modifiers, the old one if it is too
    // early.
    const auto pressHotKey = [&] {
        constexpr std::uint8_t control = 37, alt = 64, r = 27;
        for (const auto key : {control, alt, r})
            stage.server().press(key);
        const bool isSelected = stage.waitForSource(ofHotKey);
        for (const auto key : {r, alt, control})
            stage.server().release(key);
        return isSelected;
    };
    story.show("Control+Alt+R", ofHotKey, pressHotKey, first);
    stage.savePicture(picture.arg("-hot-key"));
    showLauncher(stage, story, first.source, picture.arg("-launcher"));
    return story.isAllRight;
}

} // namespace

int main(int count, char** arguments) try {
    becomeOrdinaryUser(arguments);
    if (count != 2) return 2;
    const QCoreApplication qt(count, arguments);
    return play(arguments[1]) ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
