#include "linux/program/PreferencesSession.h"

#include <algorithm>
#include <stdexcept>

#include "platform/linux/windows/StackedWindow.h"
#include "virtual-desktop/WaitUntil.h"

namespace quorvane {

void PreferencesSession::install(const QString& id, const QString& name) {
    const auto entry = QString("[Desktop Entry]\nType=Application\nName=%1\nExec=%2\n");
    session.folders.write("data/applications/" + id + ".desktop", entry.arg(name, id).toUtf8());
}

void PreferencesSession::open() {
    session.startProgram();
    launchAgain();
}

void PreferencesSession::launchAgain() {
    TestProgram again(QUORVANE_PROGRAM);
    if (!again.waitForEnd() || !waitUntil([this] { return window() != XCB_WINDOW_NONE; }))
        throw std::runtime_error("the window does not open");
}

xcb_window_t PreferencesSession::window() {
    // The program knows its place only when the window manager has given it a frame.
    const auto told = tree.placeOf("frame", "Quorvane");
    const Rect place{double(told.x()), double(told.y()), double(told.width()), double(told.height())};
    for (const auto& each : stackedWindows(*x))
        if (each.isVisible && each.bounds == place) return each.window;
    return XCB_WINDOW_NONE;
}

bool PreferencesSession::isMenuOpen() {
    constexpr double higherThanToolTips = 40;
    return std::ranges::any_of(stackedWindows(*x), [](const auto& each) {
        return each.isPopUp && each.isVisible && each.bounds.height > higherThanToolTips;
    });
}

void PreferencesSession::clickAt(const QPoint& place) {
    moveTo(place);
    session.user.click(1);
}

} // namespace quorvane
