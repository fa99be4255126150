#include "virtual-desktop/ProgramWithRules.h"

#include <stdexcept>

#include "settings/AppRule.h"
#include "settings/Keys.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

ProgramWithRules::ProgramWithRules() : stores(LinuxUserDefaults::configFolder(), maker::bundleIdentifier) {
    stores.standardUserDefaults().setBool(true, key::notNeedRemindForAutoStartAtLogin);
    stores.standardUserDefaults().synchronize();
}

void ProgramWithRules::startProgram() {
    program.emplace(QUORVANE_PROGRAM);
    setRule("ready.when.this.is.taken", "xkb:us");
}

void ProgramWithRules::setRule(const std::string& application, const std::string& inputSource) {
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

} // namespace quorvane
