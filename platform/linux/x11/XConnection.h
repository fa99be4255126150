#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <QMetaObject>
#include <QSocketNotifier>
#include <xcb/xcb.h>

#include "platform/Signal.h"

namespace quorvane {

/// The program's own connection to the X server, separate from the toolkit's, read by Qt's event loop. Needs
/// a QCoreApplication, no more. Used from the main thread only.
///
/// Nobody else may wait for events on `xcb()`. Requests need no flush: they are sent, at the latest, before
/// the event loop goes to sleep. After the server is lost every reply is null and every request does nothing.
class XConnection {
public:
    /// Connects to the server that DISPLAY names; null when there is none.
    static std::unique_ptr<XConnection> open();
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    xcb_connection_t* xcb() const { return xcb_; }
    const xcb_screen_t& screen() const { return screen_; }
    int screenNumber() const { return screenNumber_; }
    xcb_window_t root() const { return screen_.root; }

    /// The atom of that name; the first question for a name costs a round trip, unless `internAtoms` has been
    /// told of it.
    xcb_atom_t atom(std::string_view name);

    /// Makes all these atoms known in one round trip.
    void internAtoms(std::initializer_list<std::string_view> names);

    /// Every event of the connection, in order, whoever asked for it. Errors of requests without a reply are
    /// not events: they are dropped here, and whoever cares uses a checked request.
    Subscription onEvent(std::function<void(const xcb_generic_event_t&)> handler);

    /// Called once, from the event loop, when the server has gone.
    Subscription onLost(std::function<void()> handler);

    /// Adds to the events that this connection gets from the root window.
    void selectRootEvents(std::uint32_t mask);

private:
    XConnection(xcb_connection_t* xcb, const xcb_screen_t& screen, int screenNumber);

    void readSocket();
    void beforeSleep();
    bool dispatch(xcb_generic_event_t* (*nextEvent)(xcb_connection_t*));
    void checkForLoss();

    xcb_connection_t* xcb_;
    xcb_screen_t screen_;
    int screenNumber_;
    std::map<std::string, xcb_atom_t, std::less<>> atoms_;
    std::uint32_t rootMask_ = 0;
    Signal<const xcb_generic_event_t&> event_;
    Signal<> lost_;
    QSocketNotifier socket_;
    QMetaObject::Connection aboutToBlock_;
};

} // namespace quorvane
