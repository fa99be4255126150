#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/Maker.h"
#include "virtual-desktop/RunningProgram.h"

namespace quorvane {

/// The program in the current home and session, and the user who sets it: one who does not want to be
/// reminded of login items.
class ProgramWithRules {
public:
    ProgramWithRules();

    /// Starts the program and waits until it has taken a rule: it is ready then.
    void startProgram();

    /// A rule as the user would make it while the program runs, waited for until the program has taken it.
    void setRule(const std::string& application, const std::string& inputSource);

    std::int64_t switchTimes() { return shared()->integerForKey("SwitchTimes"); }
    std::unique_ptr<UserDefaults> shared() { return stores.initWithSuiteName(maker::sharedSuiteName); }

    LinuxUserDefaults stores;
    std::optional<RunningProgram> program;
};

} // namespace quorvane
