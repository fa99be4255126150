#include "platform/linux/demo/Story.h"

#include <array>
#include <cstdio>
#include <map>
#include <thread>
#include <vector>

#include "platform/linux/demo/LauncherOfStage.h"

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr auto pauseBetween = 400ms; // so that somebody can watch

/// A word in the language of an input source, and the keys that type it there.
struct Word {
    const char* text;
    std::vector<std::uint8_t> keys;
};

const Word& wordIn(const std::string& source) {
    static const std::map<std::string, Word> words{{"xkb:us", {"hello", {43, 26, 46, 46, 32}}},
                                                   {"xkb:ru", {"привет", {42, 43, 56, 40, 28, 57}}},
                                                   {"xkb:de", {"größe", {42, 27, 47, 20, 26}}}};
    return words.at(source);
}

std::string columns(const std::string& what, const std::string& wanted, const std::string& before,
                    const std::string& after) {
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), "%-18s %-8s %-8s %-8s ", what.c_str(), wanted.c_str(),
                  before.c_str(), after.c_str());
    return text.data();
}

void type(Stage& stage, const Word& word) {
    for (const auto key : word.keys)
        stage.server().type({key});
}

} // namespace

void Story::heading(const char* what) {
    stage_.print(columns(what, "wanted", "before", "after") + "typed");
}

void Story::row(const std::string& what, const std::string& wanted, const std::string& before, bool isRight,
                const std::string& typed) {
    stage_.print(columns(what, wanted, before, stage_.source()) + typed + (isRight ? "" : "  WRONG"));
    isAllRight_ = isAllRight_ && isRight;
    std::this_thread::sleep_for(pauseBetween);
}

void Story::show(const std::string& what, const std::string& wanted, const std::function<bool()>& happen,
                 ProgramOnStage& program) {
    const auto before = stage_.source();
    const bool isSelected = happen() && stage_.waitForSource(wanted);
    constexpr std::uint8_t space = 65;
    const auto& word = wordIn(wanted);
    type(stage_, word);
    stage_.server().type({space});
    const bool isRight = program.gets(word.text) && isSelected;
    row(what, wanted, before, isRight, isRight ? word.text : program.typed());
}

void Story::showLauncher(const std::string& sourceOfFront, const QString& picture) {
    const std::string inLauncher = "xkb:us";
    LauncherOfStage launcher(stage_);
    const std::string name = launcher.name();
    stage_.session().setRule(launcher.id(), inLauncher);

    const auto before = stage_.source();
    launcher.open();
    const bool isSelected = stage_.waitForSource(inLauncher);
    row(name + " is opened", inLauncher, before, isSelected, "");
    type(stage_, wordIn(inLauncher));
    stage_.savePicture(picture);
    const auto typed = launcher.close();
    const bool isRight = stage_.waitForSource(sourceOfFront) && typed == wordIn(inLauncher).text;
    row(name + " is closed", sourceOfFront, inLauncher, isRight, typed.toStdString());
}

} // namespace quorvane
