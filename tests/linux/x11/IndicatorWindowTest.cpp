// The floating indicator on a real server, and the coordinates it and others stand in.

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/x11/ServerSession.h"
#include "platform/linux/qt/QtImage.h"
#include "platform/linux/qt/QtIndicatorWindow.h"
#include "platform/linux/x11/keyboard/X11EventMonitor.h"
#include "platform/linux/x11/windows/X11Cursor.h"
#include "platform/linux/x11/windows/X11Indicator.h"
#include "platform/linux/x11/windows/X11WindowList.h"

namespace quorvane {
namespace {

/// A desktop with an indicator that the program has set up.
struct Shown {
    Shown(ServerSession& desktop, double scale)
        : session(desktop)
        , screens(*desktop.x, desktop.workspace, scale) {
        indicator.setStyle({.hasClearBackground = true, .isMovableByWindowBackground = true});
        indicator.iconBox().setHidden(false);
        waitUntil([&] { return native().window != XCB_WINDOW_NONE; });
    }

    /// The native window; none while there is none to be seen.
    StackedWindow native() {
        for (const auto& each : stackedWindows(*session.x)) {
            const auto* owner = session.owners.ownerOf(each.window);
            if (each.isVisible && owner && owner->isThisProcess) return each;
        }
        return {};
    }

    ServerSession& session;
    X11Screens screens;
    X11Indicator surface{*session.x, screens};
    QtIndicatorWindow indicator{surface};
};

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

TEST(IndicatorWindowTest, StandsAtThePixelAskedForOnEveryKindOfScreen) {
    ServerSession session;
    XServer::splitScreen("LEFT", "*RIGHT");
    const TestWindow other({"at=101,51,301,201", "class=Other"});
    ASSERT_TRUE(session.waitForFront("Other"));
    const auto pixels = stackedWindow(*session.x, other.window()).bounds;
    for (const double scale : {1.0, 2.0}) {
        Shown shown(session, scale);
        const X11WindowList list(*session.x, session.owners, session.workspace, shown.screens,
                                 session.known.launchers);
        EXPECT_EQ(list.windows().front().bounds, (Rect{(pixels.x - 800) / scale, pixels.y / scale,
                                                       pixels.width / scale, pixels.height / scale}));
        EXPECT_EQ(shown.screens.mainScreen()->frame, (Rect{-800 / scale, 0, 800 / scale, 900 / scale}));
        const double side = 20 * scale;
        const auto native = shown.native().window;
        const struct {
            Point origin;
            double x, y;
        } cases[] = {{{100.5, 20}, 800 + std::round(100.5 * scale), 900 - 20 * scale - side},
                     {{-800 / scale, 0}, 0, 900 - side},
                     {{noNumber, noNumber}, 800, 900 - side},
                     {{infinity, 1e300}, 32767, -32768},
                     {{-infinity, -1e300}, -32768, 32767}};
        for (const auto& each : cases) {
            shown.indicator.setFrameOrigin(each.origin);
            EXPECT_TRUE(waitUntil([&] {
                return stackedWindow(*session.x, native).bounds == Rect{each.x, each.y, side, side};
            })) << each.origin.x;
        }
    }
}

class IndicatorOnWindowManager : public testing::TestWithParam<const char*> {
protected:
    ServerSession session_{GetParam()};
    Shown shown_{session_, 1};
};
INSTANTIATE_TEST_SUITE_P(X11, IndicatorOnWindowManager, testing::Values("openbox", "xfwm4"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_P(IndicatorOnWindowManager, IsDraggedExactlyAndWithoutTellingAnybody) {
    const TestWindow other({"class=Other"});
    ASSERT_TRUE(session_.waitForFront("Other"));
    shown_.indicator.setFrameOrigin({400, 500});
    const Rect start{400, 380, 20, 20};
    ASSERT_TRUE(waitUntil([&] { return shown_.native().bounds == start; }));
    X11EventMonitor monitor(*session_.x);
    int told = 0;
    const auto clicks = monitor.addGlobalMonitor(eventMask(EventType::leftMouseUp), [&](auto&) { ++told; });

    session_.user.moveTo(407, 389);
    session_.user.click(1);
    session_.handleWhatHappened();
    EXPECT_EQ(shown_.native().bounds, start);
    session_.user.pressButton(1);
    session_.user.moveTo(500, 300);
    session_.user.moveTo(612, 245);
    session_.user.releaseButton(1);
    session_.user.moveTo(900, 700); // Gone before anybody could ask where the button was released.
    EXPECT_TRUE(waitUntil([&] { return shown_.native().bounds == Rect{605, 236, 20, 20}; }));
    EXPECT_TRUE(session_.waitForFront("Other"));
    const auto framed = session_.user.show(); // By a connection of its own, as windows of a toolkit are.
    ASSERT_TRUE(waitUntil([&] { return stackedWindow(*session_.x, framed).isVisible; }));
    const auto inside = stackedWindow(*session_.x, framed).bounds;
    session_.user.moveTo(static_cast<int>(inside.x) + 10, static_cast<int>(inside.y) + 10);
    session_.user.click(1);
    // The release waits in the server until the window manager has decided about the press.
    EXPECT_TRUE(waitUntil([&] {
        const XcbReply<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
            session_.x->xcb(), xcb_query_pointer(session_.x->xcb(), session_.x->root()), nullptr));
        return pointer && !(pointer->mask & XCB_BUTTON_MASK_1);
    }));
    session_.handleWhatHappened();
    session_.user.moveTo(900, 700);
    session_.user.click(1);
    ASSERT_TRUE(waitUntil([&] { return told > 0; }));
    EXPECT_EQ(told, 1) << "only the last click, on the desktop";
}

TEST(IndicatorWindowTest, HasTheShapeOfWhatIsDrawn) {
    ServerSession session;
    Shown shown(session, 1);
    shown.indicator.setFrameOrigin({400, 500});
    const auto pixel = [&](int x, int y) {
        session.handleWhatHappened(); // What the indicator asked for has reached the server.
        return session.user.pixelAt(x, y) & 0xffffff;
    };
    const auto desktop = pixel(390, 370);
    EXPECT_TRUE(waitUntil([&] { return pixel(410, 390) > 0xe00000U; }));
    EXPECT_EQ(pixel(400, 380), desktop);
    QImage red(64, 16, QImage::Format_ARGB32);
    red.fill(Qt::red);
    shown.indicator.iconView().setImage(QtImage::make(red));
    shown.indicator.iconView().setHidden(false);
    shown.indicator.iconBox().setHidden(true);
    EXPECT_TRUE(waitUntil([&] { return pixel(410, 390) == 0xff0000; }));
    EXPECT_EQ(pixel(401, 390), 0xff0000U) << "18 points wide";
    EXPECT_EQ(pixel(400, 390), desktop);
    EXPECT_EQ(pixel(410, 394), desktop) << "and as much less high";
    shown.indicator.iconView().setHidden(true);
    EXPECT_TRUE(waitUntil([&] { return shown.native().window == XCB_WINDOW_NONE; }));
}

class X11WindowListTest : public testing::TestWithParam<const char*> {
protected:
    std::vector<WindowDescription> readAfresh() {
        return X11WindowList(*session_.x, session_.owners, session_.workspace, screens_,
                             session_.known.launchers)
            .windows();
    }
    /// The requests that are made by the time that this returns.
    unsigned requests() { return xcb_no_operation(session_.x->xcb()).sequence; }

    ServerSession session_{GetParam()};
    X11Screens screens_{*session_.x, session_.workspace, 2};
    X11WindowList list_{*session_.x, session_.owners, session_.workspace, screens_, session_.known.launchers};
};
INSTANTIATE_TEST_SUITE_P(X11, X11WindowListTest, testing::Values("openbox", "xfwm4"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_P(X11WindowListTest, IsKeptUpByEventsAndTellsWhenTheFrontWindowMoves) {
    int told = 0;
    const auto telling = list_.addFrontWindowObserver([&] { ++told; });
    std::optional<TestWindow> front, other, menu;
    const auto tell = [&](const char* what, const char* x, const char* y) {
        ASSERT_EQ(QProcess::execute("xdotool", {what, QString::number(front->window()), x, y}), 0);
    };
    // clang-format off
    const struct {
        const char* what;
        std::function<void()> happens;
        bool isTold = true;
        bool isToBeSeen = true; ///< In the list, when it is over.
    } changes[] = {
        {"a window", [&] { front.emplace(QStringList{"class=Front", "title=Front", "at=100,100,500,300"}); }},
        {"a menu", [&] { menu.emplace(QStringList{"class=Front", "popup=1", "at=0,0,50,50"}); }, false},
        {"the menu is closed", [&] { menu.reset(); }, false},
        {"moved", [&] { tell("windowmove", "300", "200"); }},
        {"resized", [&] { tell("windowsize", "640", "480"); }},
        {"a shadow", [&] { session_.user.setValues(front->window(), "_GTK_FRAME_EXTENTS", {9, 9, 20, 20}); }},
        {"another title", [&] { session_.user.setText(front->window(), "_NET_WM_NAME", "UTF8_STRING", "Other"); }, false},
        {"another window", [&] { other.emplace(QStringList{"class=Other", "title=Other"}); }},
        {"brought to the front", [&] { session_.user.activate(front->window()); }},
        {"filling the screen", [&] { session_.user.fillScreen(front->window()); }},
        {"minimised", [&] { session_.user.minimise(front->window()); }},
        {"shown again", [&] { session_.user.activate(front->window()); }},
        {"another window manager", [&] { session_.manager.reset(); session_.manager.emplace(GetParam()); }, true, false},
        {"closed", [&] { front->end(); }}};
    // clang-format on
    auto last = list_.windows();
    for (const auto& change : changes) {
        told = 0;
        change.happens();
        EXPECT_TRUE(waitUntil([&] {
            return list_.windows() == readAfresh() && (list_.windows() != last || !change.isToBeSeen) &&
                   (told > 0 || !change.isTold);
        })) << change.what;
        session_.handleWhatHappened();
        last = list_.windows();
    }
    const auto before = requests();
    EXPECT_EQ(list_.windows(), last);
    EXPECT_EQ(requests(), before + 1) << "nothing is asked while nothing happens";
}

TEST_P(X11WindowListTest, KnowsWindowsToWorkInFromOthers) {
    const struct {
        const char* what;
        QStringList arguments;
        std::string added; ///< To its state.
        std::optional<std::string> title;
        int layer;
    } cases[] = {
        {"normal", {"title=Normal"}, {}, "Normal", 0},
        {"always on top", {"title=Top"}, "_NET_WM_STATE_ABOVE", "Top", 0},
        {"a tool, always on top", {"title=Tool", "type=UTILITY"}, "_NET_WM_STATE_ABOVE", "Tool", 3},
        {"always below", {"title=Bottom"}, "_NET_WM_STATE_BELOW", "Bottom", -1},
        {"an empty title", {"_NET_WM_NAME="}, {}, "", 0},
    };
    for (const auto& each : cases) {
        const TestWindow window(each.arguments + QStringList{"class=Shown"});
        if (!each.added.empty()) session_.user.setState(window.window(), each.added, true);
        EXPECT_TRUE(waitUntil([&] {
            const auto windows = list_.windows();
            return windows.size() == 1 && windows[0].name == each.title && windows[0].layer == each.layer;
        })) << each.what;
    }
}

TEST(X11CursorTest, TellsTheHotSpotInPoints) {
    const XServer server; // Without a window manager, who has cursors of its own.
    const auto x = XConnection::open();
    const auto shape = xcb_generate_id(x->xcb()), picture = xcb_generate_id(x->xcb());
    xcb_create_pixmap(x->xcb(), 1, shape, x->root(), 16, 16);
    xcb_create_cursor(x->xcb(), picture, shape, XCB_NONE, 0, 0, 0, 0, 0, 0, 6, 2);
    xcb_change_window_attributes(x->xcb(), x->root(), XCB_CW_CURSOR, &picture);
    EXPECT_EQ(X11Cursor(*x, 2).hotSpot(), (Point{3, 1}));
}

} // namespace
} // namespace quorvane
