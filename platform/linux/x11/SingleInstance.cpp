#include "platform/linux/x11/SingleInstance.h"

#include <chrono>
#include <thread>

#include "platform/linux/x11/XcbReply.h"

namespace quorvane {
namespace {

constexpr std::string_view selectionName = "_QUORVANE_INSTANCE";
constexpr std::string_view reopenMessage = "_QUORVANE_REOPEN";
constexpr std::chrono::seconds longestWait(5);
constexpr std::chrono::milliseconds pause(5);

} // namespace

SingleInstance::SingleInstance(XConnection& x) : x_(x), window_(xcb_generate_id(x.xcb())) {
    x_.internAtoms({selectionName, reopenMessage});
    xcb_create_window(x_.xcb(), XCB_COPY_FROM_PARENT, window_, x_.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

xcb_window_t SingleInstance::owner() {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        x_.xcb(), xcb_get_selection_owner(x_.xcb(), x_.atom(selectionName)), nullptr));
    return reply ? reply->owner : XCB_NONE;
}

bool SingleInstance::becomeTheOne() {
    // Two programs launched at once must not both find nobody.
    xcb_grab_server(x_.xcb());
    const auto other = owner();
    if (other == XCB_NONE)
        xcb_set_selection_owner(x_.xcb(), window_, x_.atom(selectionName), XCB_CURRENT_TIME);
    xcb_ungrab_server(x_.xcb());
    xcb_flush(x_.xcb());
    return other == XCB_NONE;
}

void SingleInstance::askTheOtherToReopen() {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = owner();
    message.type = x_.atom(reopenMessage);
    xcb_send_event(x_.xcb(), false, message.window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    // This process ends now, and the server would throw away what it has not read yet if there were something
    // here that this process has not read. With an answer, it has read everything.
    owner();
}

void SingleInstance::waitForTheOtherToEnd() {
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (owner() != XCB_NONE && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(pause);
}

void SingleInstance::onReopen(std::function<void()> handler) {
    reopen_ = x_.onEvent([this, handler = std::move(handler)](const xcb_generic_event_t& event) {
        if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE) return;
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.window == window_ && message.type == x_.atom(reopenMessage)) handler();
    });
}

} // namespace quorvane
