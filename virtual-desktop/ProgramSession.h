#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/Maker.h"
#include "virtual-desktop/RunningProgram.h"
#include "virtual-desktop/ScratchFolders.h"
#include "virtual-desktop/XClient.h"
#include "virtual-desktop/XServer.h"

namespace quorvane {

/// A user's session with the layouts us, ru and de (`xkb:us` selected), a window manager and a session bus.
/// The user does not want to be reminded of login items.
class ProgramSession {
public:
    explicit ProgramSession(const QString& windowManager = "openbox");

    /// Starts the program and waits until it has taken a rule: it is ready then.
    void startProgram();

    /// A rule as the user would make it while the program runs, waited for until the program has taken it.
    void setRule(const std::string& application, const std::string& inputSource);

    /// The group that typing uses, as the server tells it.
    unsigned group() { return user.currentGroup(); }
    bool waitForGroup(unsigned wanted);

    /// As the window manager tells it; none when there is none.
    xcb_window_t activeWindow();

    /// Types the keys at these places of the keyboard, whatever layout they are in.
    void type(std::initializer_list<std::uint8_t> keycodes);

    std::int64_t switchTimes() { return shared()->integerForKey("SwitchTimes"); }
    std::unique_ptr<UserDefaults> shared() { return stores.initWithSuiteName(maker::sharedSuiteName); }

    ScratchFolders folders;
    XServer server{"us,ru,de"};
    std::optional<WindowManager> manager;
    SessionBus bus;
    LinuxUserDefaults stores;
    XClient user;
    std::optional<RunningProgram> program;
};

} // namespace quorvane
