// Plays a story on a virtual Wayland desktop and prints, for each step, what happened to the layout, and what
// typing then gives: quorvane-wayland-demo sway|kwin|gnome. Exits 0 only if all of it was right. Pictures are
// saved in $QUORVANE_PICTURES, or else where it is started.

#include <cstdio>
#include <list>
#include <stdexcept>

#include <QCoreApplication>

#include "platform/linux/demo/Story.h"
#include "virtual-desktop/OrdinaryUser.h"

namespace {

using namespace quorvane;
using Toolkit = TextCommand::Toolkit;
using Role = ProgramOnStage::Role;

std::list<ProgramOnStage> openPrograms(Stage& stage) {
    const QRect place(740, 510, 480, 130);
    // foot ends on KWin without a screen, which tells no rate at which it is refreshed.
    const auto third = stage.isKWin() ? Role{Toolkit::qt, "Briefe", "Briefe", "xkb:de", place}
                                      : Role{Toolkit::foot, "foot", "foot", "xkb:de", place};
    const Role roles[] = {{Toolkit::qt, "Letters", "Letters", "xkb:ru", {740, 80, 480, 100}},
                          {Toolkit::xim, "XTerm", "debian-xterm", "xkb:us", {740, 280, 480, 130}},
                          third};
    std::list<ProgramOnStage> programs;
    for (const auto& role : roles) {
        stage.session().setRule(role.id, role.source);
        programs.emplace_back(stage, role);
    }
    return programs;
}

/// Held until the source is there: a virtual keyboard of sway's sends the layout with its modifiers, and
/// could put the old one back.
bool pressHotKey(Stage& stage, const std::string& source) {
    constexpr std::uint8_t control = 37, alt = 64, r = 27;
    for (const auto key : {control, alt, r})
        stage.server().press(key);
    const bool isSelected = stage.waitForSource(source);
    for (const auto key : {r, alt, control})
        stage.server().release(key);
    return isSelected;
}

bool play(const std::string& compositor) {
    Stage stage(compositor);
    const auto picture = QString::fromStdString("demo-" + compositor);
    constexpr auto ofHotKey = "xkb:de";
    stage.addHotKey(ofHotKey, "Ctrl+Alt+R");
    auto programs = openPrograms(stage);
    Story story(stage);
    const auto bringToFront = [&](ProgramOnStage& program) {
        story.show(
            program.name(), program.source(), [&] { return program.activate(); }, program);
    };

    story.heading("front application");
    for (int round = 0; round < 3; ++round) {
        for (auto& program : programs)
            bringToFront(program);
    }
    stage.print("");
    story.heading("what happens");
    auto& first = programs.front();
    bringToFront(first);
    stage.savePicture(picture + ".png");
    story.show(
        "Control+Alt+R", ofHotKey, [&] { return pressHotKey(stage, ofHotKey); }, first);
    stage.savePicture(picture + "-hot-key.png");
    story.showLauncher(first.source(), picture + "-launcher.png");
    stage.endProgram();
    return story.isAllRight();
}

} // namespace

int main(int count, char** arguments) try {
    becomeOrdinaryUser(arguments);
    if (count != 2) throw std::runtime_error("usage: quorvane-wayland-demo sway|kwin|gnome");
    const QCoreApplication qt(count, arguments);
    return play(arguments[1]) ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
