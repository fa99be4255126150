#include "virtual-desktop/ProgramSession.h"

#include <stdexcept>

#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

ProgramSession::ProgramSession(const QString& windowManager)
    : manager(windowManager)
    , stores(LinuxUserDefaults::configFolder(), maker::bundleIdentifier) {
    stores.standardUserDefaults().setBool(true, key::notNeedRemindForAutoStartAtLogin);
    stores.standardUserDefaults().synchronize();
}

void ProgramSession::startProgram() {
    program.emplace(QUORVANE_PROGRAM);
    setRule("ready.when.this.is.taken", "xkb:us");
}

void ProgramSession::setRule(const std::string& application, const std::string& inputSource) {
    auto& standard = stores.standardUserDefaults();
    const bool isTaken = waitUntil([&] {
        const auto rules = shared()->objectForKey(key::autoInput);
        if (AppRule::ofApplication(rules, application).id() == inputSource) return true;
        // A program that was not ready yet has not seen the change, and writing the same again is none.
        removeRule(standard, application);
        setRuleInput(standard, application, inputSource);
        return false;
    });
    if (!isTaken) throw std::runtime_error("the program does not take the rule");
}

bool ProgramSession::waitForGroup(unsigned wanted) {
    return waitUntil([&] { return group() == wanted; });
}

xcb_window_t ProgramSession::activeWindow() {
    const auto windows = user.values(user.root(), "_NET_ACTIVE_WINDOW");
    return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

void ProgramSession::type(std::initializer_list<std::uint8_t> keycodes) {
    for (const auto keycode : keycodes)
        user.pressTogether({keycode});
}

} // namespace quorvane
