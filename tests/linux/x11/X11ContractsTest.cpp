// The contracts of the ports, on real servers and window managers.

#include <list>
#include <map>

#include "contracts/GlobalEventMonitorContract.h"
#include "contracts/OnScreenWindowListContract.h"
#include "contracts/ScreensContract.h"
#include "contracts/WorkspaceContract.h"
#include "linux/x11/ServerSession.h"
#include "platform/linux/x11/keyboard/X11EventMonitor.h"
#include "platform/linux/x11/windows/X11Screens.h"
#include "platform/linux/x11/windows/X11WindowList.h"

namespace quorvane {
namespace {

template <class Bench>
class X11Bench : public Bench {
public:
    explicit X11Bench(const QString& windowManager) : session_(windowManager) {}
    bool waitUntil(const std::function<bool()>& condition) override { return quorvane::waitUntil(condition); }

protected:
    ServerSession session_;
};

class X11WorkspaceBench : public X11Bench<WorkspaceBench> {
public:
    using X11Bench::X11Bench;
    Workspace& workspace() override { return session_.workspace; }
    void openWindow(const std::string& id) override {
        windows_[id].emplace_back(QStringList{QString("class=%1").arg(id.c_str())});
    }
    void activate(const std::string& id) override { session_.user.activate(windows_[id].front().window()); }
    void hide(const std::string& id) override {
        for (const auto& each : windows_[id]) {
            session_.user.minimise(each.window());
            // The focus moves on before the window manager has done with this one.
            waitUntil([&] {
                const auto states = session_.user.values(each.window(), "_NET_WM_STATE");
                return std::ranges::count(states, session_.x->atom("_NET_WM_STATE_HIDDEN")) > 0;
            });
        }
        session_.handleWhatHappened();
    }
    void quit(const std::string& id) override {
        const auto window = windows_[id].front().window();
        windows_.erase(id);
        // The next program gets its number: nobody shall take that for the one that has gone. openbox leaves
        // the last one announced.
        const auto lists = [&](const char* property) {
            return std::ranges::count(session_.user.values(session_.user.root(), property), window) > 0;
        };
        waitUntil(
            [&] { return !lists("_NET_CLIENT_LIST") && (windows_.empty() || !lists("_NET_ACTIVE_WINDOW")); });
    }

private:
    std::map<std::string, std::list<TestWindow>> windows_;
};

class X11WindowListBench : public X11Bench<OnScreenWindowListBench> {
public:
    using X11Bench::X11Bench;
    OnScreenWindowList& windowList() override { return list_; }
    void openWindow(const std::string& owner, const std::string& title, Rect bounds) override {
        open(owner, title, bounds, {});
    }
    void openMenu(const std::string& owner, const std::string& title, Rect bounds) override {
        open(owner, title, bounds, {"popup=1"});
    }
    void bringToFront(const std::string& title) override {
        session_.user.activate(windows_.at(title).window());
    }
    void minimise(const std::string& title) override { session_.user.minimise(windows_.at(title).window()); }

private:
    void open(const std::string& owner, const std::string& title, Rect at, QStringList arguments) {
        arguments << QString("class=%1").arg(owner.c_str()) << QString("title=%1").arg(title.c_str())
                  << QString("at=%1,%2,%3,%4").arg(at.x).arg(at.y).arg(at.width).arg(at.height);
        windows_.try_emplace(title, arguments);
    }

    std::map<std::string, TestWindow> windows_;
    X11Screens screens_{*session_.x, session_.workspace, 1};
    X11WindowList list_{*session_.x, session_.owners, session_.workspace, screens_, session_.known.launchers};
};

class X11ScreensBench : public X11Bench<ScreensBench> {
public:
    using X11Bench::X11Bench;
    Screens& screens() override { return screens_; }
    void connectSecondScreen() override { session_.server.splitScreen("LEFT", "RIGHT"); }
    void disconnectSecondScreen() override {
        for (const auto* name : {"RIGHT", "LEFT"})
            EXPECT_EQ(QProcess::execute("xrandr", {"--delmonitor", name}), 0);
    }
    void focusLeft() override { session_.user.activate(left_.window()); }
    void focusRight() override { session_.user.activate(right_.window()); }

private:
    TestWindow left_{{"class=left", "at=600,100,300,200"}}; // Reaches into the right screen a little.
    TestWindow right_{{"class=right", "at=1000,100,300,200"}};
    X11Screens screens_{*session_.x, session_.workspace, 1};
};

class X11EventMonitorBench : public X11Bench<GlobalEventMonitorBench> {
public:
    using X11Bench::X11Bench;
    GlobalEventMonitor& monitor() override { return monitor_; }
    void press(TestKey key) override { session_.user.press(keycodes_.at(key)); }
    void release(TestKey key) override { session_.user.release(keycodes_.at(key)); }
    void clickLeft() override { session_.user.click(1); }
    void clickRight() override { session_.user.click(3); }

private:
    const std::map<TestKey, std::uint8_t> keycodes_ = {
        {TestKey::leftShift, 50},     {TestKey::rightShift, 62},    {TestKey::leftControl, 37},
        {TestKey::rightControl, 105}, {TestKey::leftOption, 64},    {TestKey::rightOption, 108},
        {TestKey::leftCommand, 133},  {TestKey::rightCommand, 134}, {TestKey::capsLock, 66},
        {TestKey::letter, 38}};
    X11EventMonitor monitor_{*session_.x};
};

template <class Bench, class... Managers>
auto on(Managers... managers) {
    return testing::Values([=] { return std::make_unique<Bench>(managers); }...);
}

INSTANTIATE_TEST_SUITE_P(X11, WorkspaceContract, on<X11WorkspaceBench>("openbox", "xfwm4"));
INSTANTIATE_TEST_SUITE_P(X11, EmptyFrontContract, on<X11WorkspaceBench>("openbox", "xfwm4"));
INSTANTIATE_TEST_SUITE_P(X11, FrontWindowContract, on<X11WindowListBench>("openbox", "xfwm4"));
INSTANTIATE_TEST_SUITE_P(X11, OnScreenWindowListContract, on<X11WindowListBench>("openbox", "xfwm4"));
INSTANTIATE_TEST_SUITE_P(X11, ScreensContract, on<X11ScreensBench>("openbox"));
INSTANTIATE_TEST_SUITE_P(X11, GlobalEventMonitorContract, on<X11EventMonitorBench>("openbox"));

} // namespace
} // namespace quorvane
