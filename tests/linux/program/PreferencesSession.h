#pragma once

#include <algorithm>
#include <stdexcept>

#include "linux/program/ProgramSession.h"
#include "linux/support/AccessibleTree.h"
#include "linux/support/ShownWindows.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

/// A session whose user opens the preferences window, finds what is in it as a screen reader would, and uses
/// the mouse.
struct PreferencesSession {
    /// An application for the user to have a rule for.
    void install(const QString& id, const QString& name) {
        const auto entry = QString("[Desktop Entry]\nType=Application\nName=%1\nExec=%2\n");
        session.folders.write("data/applications/" + id + ".desktop", entry.arg(name, id).toUtf8());
    }

    /// Starts the program and opens its window.
    void open() {
        session.startProgram();
        launchAgain();
    }

    /// Launches the running program again, which shows its window: in its place when this returns.
    void launchAgain() {
        TestProgram again(QUORVANE_PROGRAM);
        if (!again.waitForEnd() || !waitUntil([this] { return window() != XCB_WINDOW_NONE; }))
            throw std::runtime_error("the window does not open");
    }

    /// None (0) while it is not to be seen.
    xcb_window_t window() {
        // The program knows its place only when the window manager has given it a frame.
        const auto told = tree.placeOf("frame", "Quorvane");
        const Rect place{double(told.x()), double(told.y()), double(told.width()), double(told.height())};
        for (const auto& each : stackedWindows(*x))
            if (each.isVisible && each.bounds == place) return each.window;
        return XCB_WINDOW_NONE;
    }

    bool isMenuOpen() {
        constexpr double higherThanToolTips = 40;
        return std::ranges::any_of(stackedWindows(*x), [](const auto& each) {
            return each.isPopUp && each.isVisible && each.bounds.height > higherThanToolTips;
        });
    }

    void clickAt(const QPoint& place) {
        session.user.moveTo(place.x(), place.y());
        session.user.click(1);
    }
    void click(const QString& role, const QString& name) { clickAt(tree.placeOf(role, name).center()); }

    ProgramSession session;
    AccessibleTree tree;
    std::unique_ptr<XConnection> x = XConnection::open();
};

} // namespace quorvane
