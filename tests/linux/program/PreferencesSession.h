#pragma once

#include "linux/program/ProgramSession.h"
#include "linux/support/AccessibleTree.h"

namespace quorvane {

/// A session whose user opens the preferences window, finds what is in it as a screen reader would, and uses
/// the mouse.
struct PreferencesSession {
    /// An application for the user to have a rule for.
    void install(const QString& id, const QString& name);

    /// Starts the program and opens its window.
    void open();

    /// Launches the running program again, which shows its window: in its place when this returns.
    void launchAgain();

    xcb_window_t window(); ///< None (0) while it is not to be seen.
    bool isMenuOpen();

    void moveTo(const QPoint& place) { session.user.moveTo(place.x(), place.y()); }
    void clickAt(const QPoint& place);
    void click(const QString& role, const QString& name) { clickAt(tree.placeOf(role, name).center()); }

    ProgramSession session;
    AccessibleTree tree;
    std::unique_ptr<XConnection> x = XConnection::open();
};

} // namespace quorvane
