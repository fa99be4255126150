#include "platform/linux/x11/keyboard/X11EventMonitor.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include <unistd.h>
#include <xcb/xinput.h>

#include "platform/linux/Log.h"
#include "platform/linux/x11/XcbReply.h"
#include "platform/linux/x11/applications/X11WindowFacts.h"

namespace quorvane {

namespace {

constexpr std::uint32_t leftButton = 1;

/// The server's clock counts milliseconds since the computer was started, but in 32 bits, which last for 49
/// days: the rest comes from the clock it is taken from.
double secondsSinceStart(std::uint32_t serverTime) {
    using namespace std::chrono;
    const auto now = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    const auto difference = static_cast<std::int32_t>(serverTime - static_cast<std::uint32_t>(now));
    return static_cast<double>(now + difference) / 1000;
}

/// The major code of XInput's requests; none without version 2.2, whose raw events come during grabs too.
std::optional<std::uint8_t> inputOpcodeOf(xcb_connection_t* xcb) {
    const auto* extension = xcb_get_extension_data(xcb, &xcb_input_id);
    if (!extension || !extension->present) return std::nullopt;
    const XcbReply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(xcb, xcb_input_xi_query_version(xcb, 2, 2), nullptr));
    if (!version || version->major_version < 2) return std::nullopt;
    if (version->major_version == 2 && version->minor_version < 2) return std::nullopt;
    return extension->major_opcode;
}

} // namespace

X11EventMonitor::X11EventMonitor(XConnection& x)
    : x_(x)
    , observed_{Observed{EventType::leftMouseUp, &X11EventMonitor::selectButtons, 0, {}},
                Observed{EventType::flagsChanged, &X11EventMonitor::selectModifiers, 0, {}}}
    , modifiers_(x)
    , modifierChanges_(modifiers_.changed.connect([this](auto time) { emit(EventType::flagsChanged, time); }))
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {}

Subscription X11EventMonitor::addGlobalMonitor(EventMask mask, std::function<void(const Event&)> handler) {
    auto subscriptions = std::make_shared<std::vector<Subscription>>();
    for (auto& observed : observed_) {
        if (mask & eventMask(observed.type)) subscriptions->push_back(observe(observed, handler));
    }
    return Subscription([subscriptions] { subscriptions->clear(); });
}

Subscription X11EventMonitor::observe(Observed& observed, std::function<void(const Event&)> handler) {
    auto connection = std::make_shared<Subscription>(observed.observers.connect(std::move(handler)));
    if (observed.count++ == 0) (this->*observed.select)(true);
    return Subscription([this, &observed, connection, alive = std::weak_ptr(alive_)] {
        connection->end();
        if (!alive.expired() && --observed.count == 0) (this->*observed.select)(false);
    });
}

void X11EventMonitor::selectButtons(bool isOn) {
    if (!inputOpcode_) inputOpcode_ = inputOpcodeOf(x_.xcb());
    if (!inputOpcode_) {
        logLine("the X server has no XInput 2.2: mouse clicks go unseen");
        return;
    }
    struct {
        xcb_input_event_mask_t header{XCB_INPUT_DEVICE_ALL_MASTER, 1};
        std::uint32_t mask = 0;
    } request;
    if (isOn) request.mask = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
    // Waits for the server, so that nothing goes unseen that happens after this.
    const auto cookie = xcb_input_xi_select_events_checked(x_.xcb(), x_.root(), 1, &request.header);
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(x_.xcb(), cookie));
    if (error) logLine("the X server does not let mouse clicks be watched");
}

void X11EventMonitor::selectModifiers(bool isOn) {
    if (!modifiers_.watch(isOn)) logLine("the X server has no XKB extension: modifier keys go unseen");
}

void X11EventMonitor::handle(const xcb_generic_event_t& event) {
    const auto type = event.response_type & 0x7f;
    if (type == XCB_GE_GENERIC) {
        const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
        if (generic.extension == inputOpcode_) handleRaw(generic);
    } else if (type == XCB_BUTTON_PRESS || type == XCB_BUTTON_RELEASE) {
        // Certain, while a fast pointer has left a dragged window by the time that anybody asks.
        const auto& button = reinterpret_cast<const xcb_button_press_event_t&>(event);
        if (button.detail == leftButton) isOwnClick_ = type == XCB_BUTTON_PRESS;
    }
}

void X11EventMonitor::handleRaw(const xcb_ge_generic_event_t& event) {
    const auto& raw = reinterpret_cast<const xcb_input_raw_button_release_event_t&>(event);
    if (event.event_type != XCB_INPUT_RAW_BUTTON_RELEASE || raw.detail != leftButton) return;
    if (!std::exchange(isOwnClick_, false) && !isPointerOnOwnWindow()) emit(EventType::leftMouseUp, raw.time);
}

// Not by way of the windows' applications, which are remembered and watched: that is of no use for the window
// managers' frames and the programs' buttons that are clicked on.
bool X11EventMonitor::isPointerOnOwnWindow() const {
    constexpr std::size_t deepestClient = 3; // A frame of two windows, and the program's own.
    std::vector<xcb_window_t> path;
    for (auto window = x_.root(); path.size() < deepestClient; path.push_back(window)) {
        const XcbReply<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(x_.xcb(), xcb_query_pointer(x_.xcb(), window), nullptr));
        if (!pointer || pointer->child == XCB_WINDOW_NONE) break;
        window = pointer->child;
    }
    return std::ranges::any_of(factsOf(x_, path),
                               [](const auto& facts) { return facts && facts->pid == getpid(); });
}

void X11EventMonitor::emit(EventType type, std::uint32_t time) {
    const auto observed = std::ranges::find(observed_, type, &Observed::type);
    observed->observers.emit({type, modifiers_.flags(), secondsSinceStart(time)});
}

} // namespace quorvane
