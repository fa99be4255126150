#include "platform/linux/x11/X11SingleInstance.h"

#include <chrono>
#include <thread>

#include "platform/linux/x11/XcbReply.h"

namespace quorvane {
namespace {

constexpr std::string_view selectionName = "_QUORVANE_INSTANCE";
constexpr std::string_view reopenRequest = "_QUORVANE_REOPEN";
constexpr std::chrono::seconds longestWait(5);
constexpr std::chrono::milliseconds pause(5);

} // namespace

X11SingleInstance::X11SingleInstance(XConnection& x) : x_(x), window_(xcb_generate_id(x.xcb())) {
    x_.internAtoms({selectionName, reopenRequest});
    xcb_create_window(x_.xcb(), XCB_COPY_FROM_PARENT, window_, x_.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

xcb_window_t X11SingleInstance::owner() {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        x_.xcb(), xcb_get_selection_owner(x_.xcb(), x_.atom(selectionName)), nullptr));
    return reply ? reply->owner : XCB_NONE;
}

bool X11SingleInstance::becomeTheOne(IfAnotherRuns ifAnotherRuns) {
    // Two programs launched at once must not both find nobody, and the one that is asked must not end between
    // being found and being asked.
    xcb_grab_server(x_.xcb());
    const bool isTheOne = owner() == XCB_NONE;
    if (isTheOne) {
        xcb_set_selection_owner(x_.xcb(), window_, x_.atom(selectionName), XCB_CURRENT_TIME);
        // Left over from an instance that ended without a successor: this launch is the answer to it.
        if (!isSuccessor_) takeRequest();
    } else if (ifAnotherRuns == IfAnotherRuns::askItToReopen) {
        constexpr std::uint32_t asked = 1;
        xcb_change_property(x_.xcb(), XCB_PROP_MODE_REPLACE, x_.root(), x_.atom(reopenRequest),
                            XCB_ATOM_CARDINAL, 32, 1, &asked);
    }
    xcb_ungrab_server(x_.xcb());
    // This process may end now, and the server would throw away what it has not read yet if there were
    // something here that this process has not read. With an answer, it has read everything.
    owner();
    return isTheOne;
}

bool X11SingleInstance::takeRequest() {
    const auto cookie =
        xcb_get_property(x_.xcb(), /*_delete=*/1, x_.root(), x_.atom(reopenRequest), XCB_ATOM_CARDINAL, 0, 1);
    const XcbReply<xcb_get_property_reply_t> request(xcb_get_property_reply(x_.xcb(), cookie, nullptr));
    return request && request->type != XCB_ATOM_NONE;
}

void X11SingleInstance::waitForTheOtherToEnd() {
    isSuccessor_ = true;
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (owner() != XCB_NONE && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(pause);
}

void X11SingleInstance::onReopen(const std::function<void()>& handler) {
    x_.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    reopen_ = x_.onEvent([this, handler](const xcb_generic_event_t& event) {
        if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return;
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const bool isRequest = change.window == x_.root() && change.atom == x_.atom(reopenRequest) &&
                               change.state == XCB_PROPERTY_NEW_VALUE;
        if (isRequest && takeRequest()) handler();
    });
    if (takeRequest()) handler();
}

} // namespace quorvane
