#include "platform/linux/x11/XConnection.h"

#include <utility>
#include <vector>

#include <QAbstractEventDispatcher>

#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

namespace {

/// The screen that DISPLAY names; null when the server has no such screen.
const xcb_screen_t* screenOf(xcb_connection_t* xcb, int number) {
    for (auto it = xcb_setup_roots_iterator(xcb_get_setup(xcb)); it.rem; xcb_screen_next(&it), --number) {
        if (number == 0) return it.data;
    }
    return nullptr;
}

} // namespace

std::unique_ptr<XConnection> XConnection::open() {
    int screenNumber = 0;
    auto* xcb = xcb_connect(nullptr, &screenNumber); // Never null: a failure is a connection in error.
    const auto* screen = xcb_connection_has_error(xcb) ? nullptr : screenOf(xcb, screenNumber);
    if (!screen) {
        xcb_disconnect(xcb);
        return nullptr;
    }
    return std::unique_ptr<XConnection>(new XConnection(xcb, *screen, screenNumber));
}

XConnection::XConnection(xcb_connection_t* xcb, const xcb_screen_t& screen, int screenNumber)
    : xcb_(xcb)
    , screen_(screen)
    , screenNumber_(screenNumber)
    , socket_(xcb_get_file_descriptor(xcb), QSocketNotifier::Read) {
    QObject::connect(&socket_, &QSocketNotifier::activated, &socket_, [this] { readSocket(); });
    aboutToBlock_ =
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                         &socket_, [this] { beforeSleep(); });
}

XConnection::~XConnection() {
    socket_.setEnabled(false);
    xcb_disconnect(xcb_);
}

xcb_atom_t XConnection::atom(std::string_view name) {
    if (const auto known = atoms_.find(name); known != atoms_.end()) return known->second;
    internAtoms({name});
    const auto known = atoms_.find(name);
    return known == atoms_.end() ? xcb_atom_t{XCB_ATOM_NONE} : known->second;
}

void XConnection::internAtoms(std::initializer_list<std::string_view> names) {
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (const auto name : names) {
        cookies.push_back(xcb_intern_atom(xcb_, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    }
    auto cookie = cookies.begin();
    for (const auto name : names) {
        const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(xcb_, *cookie++, nullptr));
        if (reply) atoms_.emplace(name, reply->atom);
    }
}

Subscription XConnection::onEvent(std::function<void(const xcb_generic_event_t&)> handler) {
    return event_.connect(std::move(handler));
}

Subscription XConnection::onLost(std::function<void()> handler) {
    return lost_.connect(std::move(handler));
}

void XConnection::selectRootEvents(std::uint32_t mask) {
    rootMask_ |= mask;
    xcb_change_window_attributes(xcb_, root(), XCB_CW_EVENT_MASK, &rootMask_);
}

void XConnection::readSocket() {
    dispatch(xcb_poll_for_event);
    checkForLoss();
}

// Waiting for a reply, and even flushing, may read events off the socket, which then never becomes readable
// for them. So nothing may be left in the queue when the loop goes to sleep.
void XConnection::beforeSleep() {
    do {
        xcb_flush(xcb_);
    } while (dispatch(xcb_poll_for_queued_event));
    checkForLoss();
}

bool XConnection::dispatch(xcb_generic_event_t* (*nextEvent)(xcb_connection_t*)) {
    bool any = false;
    while (const XcbReply<xcb_generic_event_t> event{nextEvent(xcb_)}) {
        any = true;
        if (event->response_type != 0) event_.emit(*event);
    }
    return any;
}

void XConnection::checkForLoss() {
    if (!socket_.isEnabled() || !xcb_connection_has_error(xcb_)) return;
    socket_.setEnabled(false); // The broken socket would stay readable for ever.
    QObject::disconnect(aboutToBlock_);
    lost_.emit();
}

} // namespace quorvane
