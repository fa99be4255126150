#include "benchmarks/MeasuredDesktop.h"

#include "platform/linux/defaults/LinuxUserDefaults.h"
#include "settings/AppRule.h"
#include "settings/InputShortcut.h"
#include "settings/Keys.h"
#include "settings/SharedDefaults.h"

namespace quorvane {
namespace {

// The keys U and R with control and option: as the program knows them, and as the hardware does.
constexpr std::int64_t controlOption = 262144 + 524288;
constexpr InputShortcut shortcuts[] = {{32, controlOption}, {15, controlOption}};
constexpr std::uint8_t control = 37, option = 64, hotKeys[] = {30, 27};

void writeSettings() {
    LinuxUserDefaults stores(LinuxUserDefaults::configFolder(), maker::bundleIdentifier);
    auto& standard = stores.standardUserDefaults();
    standard.setBool(true, key::notNeedRemindForAutoStartAtLogin);
    setShortcut(standard, "xkb:us", shortcuts[0].record());
    setShortcut(standard, "xkb:ru", shortcuts[1].record());
    const auto shared = openSharedDefaults(stores);
    setRuleInput(*shared, "first", "xkb:us");
    setRuleInput(*shared, "second", "xkb:ru");
    setRuleInput(*shared, "rofi", "xkb:ru");
}

} // namespace

MeasuredDesktop::MeasuredDesktop(bool withTray) {
    writeSettings();
    if (withTray) {
        tray_.start("trayer", {"--edge", "bottom", "--align", "right", "--height", "28"});
        if (!tray_.waitForStarted()) qFatal("no trayer");
    }
    agent_.setProcessChannelMode(QProcess::ForwardedChannels);
    windows_[0] = makeWindow("first", 100);
    windows_[1] = makeWindow("second", 500);
    launcher_ = makeWindow("Rofi", 300, true);
    for (const auto window : windows_)
        user_.map(window);
    bool hasFocus = false;
    while (const auto seen = user_.nextSeen(Clock::now() + std::chrono::seconds(hasFocus ? 1 : 10)))
        hasFocus = hasFocus || seen->what == XWatcher::Seen::What::focusIn;
}

xcb_window_t MeasuredDesktop::makeWindow(const std::string& wmClass, std::int16_t x, bool isPopUp) {
    const auto window = user_.create({x, 100, 300, 200}, isPopUp);
    user_.setText(window, "WM_CLASS", "STRING", wmClass + '\0' + wmClass + '\0');
    user_.watch(window);
    return window;
}

Clock::time_point MeasuredDesktop::startAgent() {
    const auto start = Clock::now();
    agent_.start(QUORVANE_PROGRAM, QStringList());
    return start;
}

void MeasuredDesktop::startAgentAndWait() {
    startAgent();
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    for (int application = 0; Clock::now() < deadline; application = 1 - application) {
        activate(application);
        while (const auto seen = user_.nextSeen(Clock::now() + std::chrono::milliseconds(20))) {
            if (seen->what == XWatcher::Seen::What::layout) return;
        }
    }
    qFatal("the agent does not switch");
}

bool MeasuredDesktop::isFocus(const XWatcher::Seen& seen, int application) const {
    return seen.what == XWatcher::Seen::What::focusIn && seen.window == windows_[application];
}

void MeasuredDesktop::pressHotKey(int group) {
    user_.pressTogether({control, option, hotKeys[group]});
}

void MeasuredDesktop::showLauncher(bool shown) {
    shown ? user_.map(launcher_) : user_.unmap(launcher_);
}

} // namespace quorvane
