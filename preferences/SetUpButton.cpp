#include "preferences/SetUpButton.h"

#include "input/CompanionMessages.h"

namespace quorvane {
namespace {

// While the user marks places, the window stays above those of other applications, on every space.
constexpr int normalLevel = 0;
constexpr int levelWhileSettingUp = 1;
constexpr unsigned oneSpace = 0;
constexpr unsigned allSpaces = 1;

} // namespace

void SetUpButton::showStopped() {
    button_.setTitle(application_.localizedString("Start Setup"));
}

void SetUpButton::startOrStopSetUpButtonClick() {
    if (!companion_.isRunning() && !lists_.isClosingPreferences) {
        button_.setState(stateOff);
        companionAlert_.show();
        return;
    }
    const bool starts = button_.state() == stateOn;
    window_.setLevel(starts ? levelWhileSettingUp : normalLevel);
    window_.setCollectionBehavior(starts ? allSpaces : oneSpace);
    if (starts)
        button_.setTitle(application_.localizedString("Stop Setup"));
    else
        showStopped();
    notifications_.post({std::string(starts ? message::startSetUp : message::stopSetUp), {}});
}

} // namespace quorvane
