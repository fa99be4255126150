#include "platform/linux/applications/X11Workspace.h"

#include <algorithm>
#include <utility>

#include "platform/linux/Log.h"
#include "platform/linux/x11/XProperties.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

X11Workspace::X11Workspace(XConnection& x, ApplicationIdentities& identities, X11Launchers& launchers,
                           BackgroundApplications* background)
    : x_(x)
    , identities_(identities)
    , launchers_(launchers)
    , background_(background)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST", "_NET_SUPPORTING_WM_CHECK", "_NET_WM_STATE",
                    "_NET_WM_STATE_HIDDEN", "WM_STATE"});
    x_.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    readStart(); // Nobody observes yet, so what is there already is not told as news.
    if (background_) {
        backgroundStarts_ = background_->onStart([this](auto id) { backgroundApplicationStarted(id); });
    }
}

void X11Workspace::readStart() {
    XProperty active(x_, x_.root(), "_NET_ACTIVE_WINDOW");
    XProperty clients(x_, x_.root(), "_NET_CLIENT_LIST");
    const auto manager = XProperty(x_, x_.root(), "_NET_SUPPORTING_WM_CHECK").values();
    // A window manager that died leaves its properties behind, but not the window they point to.
    const bool hasManager =
        !manager.empty() && !XProperty(x_, manager.front(), "_NET_SUPPORTING_WM_CHECK").values().empty();
    if (!hasManager) {
        logLine("no window manager tells which window is active (EWMH); waiting for one");
        return;
    }
    adopt(clients.values());
    const auto windows = active.values();
    if (!windows.empty() && inFront_.isManaged(windows.front()) && inFront_.announced(windows.front()))
        frontWindowMoved();
}

std::vector<RunningApplication> X11Workspace::runningApplications() const {
    auto running = launchers_.running();
    std::ranges::move(applications_.all(), std::back_inserter(running));
    if (!background_) return running;
    for (const auto& id : background_->ids()) {
        // A session bus has many names that are no application.
        if (!applications_.withId(id) && identities_.entries().withId(id)) {
            running.push_back(backgroundApplication(id));
        }
    }
    return running;
}

std::vector<RunningApplication>
X11Workspace::runningApplicationsWithBundleIdentifier(std::string_view bundleIdentifier) const {
    if (auto application = applications_.withId(bundleIdentifier)) return {std::move(*application)};
    if (background_ && background_->isRunning(bundleIdentifier))
        return {backgroundApplication(bundleIdentifier)};
    return {};
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
    return front_;
}

Subscription X11Workspace::addObserver(WorkspaceNotification notification,
                                       std::function<void(const RunningApplication&)> handler) {
    switch (notification) {
    case WorkspaceNotification::didActivateApplication:
        return activated_.connect(std::move(handler));
    case WorkspaceNotification::didUnhideApplication:
        return unhidden_.connect(std::move(handler));
    case WorkspaceNotification::didLaunchApplication:
        return launched_.connect(std::move(handler));
    case WorkspaceNotification::didLeaveFront:
        return left_.connect(std::move(handler));
    }
    return {};
}

void X11Workspace::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY:
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
        break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        handleFocus(reinterpret_cast<const xcb_focus_in_event_t&>(event));
        break;
    case XCB_MAP_NOTIFY:
        shown(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
        break;
    case XCB_DESTROY_NOTIFY:
        closed(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window, true);
        break;
    default:
        break;
    }
}

void X11Workspace::handleProperty(const xcb_property_notify_event_t& change) {
    if (change.window == x_.root()) {
        if (change.atom == x_.atom("_NET_ACTIVE_WINDOW")) readActiveWindow();
        // The list is empty while a window manager restarts: only its additions mean something.
        if (change.atom == x_.atom("_NET_CLIENT_LIST"))
            adopt(XProperty(x_, x_.root(), "_NET_CLIENT_LIST").values());
    } else if (inFront_.isManaged(change.window)) {
        if (change.atom == x_.atom("WM_STATE")) readWithdrawal(change.window);
        if (change.atom == x_.atom("_NET_WM_STATE")) readState(change.window);
        if (identities_.isIdentifying(change.atom)) identifyAgain(change.window);
    } else if (change.atom == x_.atom("WM_STATE")) {
        shown(change.window);
    }
}

// A grab borrows the keyboard and gives it back; a focus that only follows the pointer is none; and one that
// moves into the window is still there.
void X11Workspace::handleFocus(const xcb_focus_in_event_t& change) {
    const bool isGrab = change.mode == XCB_NOTIFY_MODE_GRAB || change.mode == XCB_NOTIFY_MODE_UNGRAB;
    if (isGrab || change.detail >= XCB_NOTIFY_DETAIL_POINTER) return;
    if ((change.response_type & 0x7f) == XCB_FOCUS_IN) {
        inFront_.focused(change.event);
        // Told even if it is no news: a launcher that was hidden and shown again was in front all the time.
        if (inFront_.window() == change.event) frontWindowMoved();
    } else if (change.detail != XCB_NOTIFY_DETAIL_INFERIOR && inFront_.unfocused(change.event)) {
        frontWindowMoved();
    }
}

// The property may hold a second value (xfwm4), or a window that is gone by now.
void X11Workspace::readActiveWindow() {
    const auto windows = XProperty(x_, x_.root(), "_NET_ACTIVE_WINDOW").values();
    if (windows.empty()) return;
    const auto window = windows.front();
    adopt({&window, 1});
    if (inFront_.isManaged(window) && inFront_.announced(window)) frontWindowMoved();
}

// First who comes to the front, then who went: a launcher that closes because another application came to the
// front must not have the source of the one before selected.
void X11Workspace::frontWindowMoved() {
    const auto window = inFront_.window();
    if (window != XCB_WINDOW_NONE && window != activeWindow_ && !launchers_.contains(window))
        activate(window);
    launchers_.focusMovedTo(window);
}

void X11Workspace::activate(xcb_window_t window) {
    const auto application = applications_.applicationOf(window);
    if (!application) return;
    activeWindow_ = window;
    front_ = application;
    const auto shownAgain = std::exchange(shownAgain_, std::nullopt);
    activated_.emit(*application);
    if (shownAgain && shownAgain == application->bundleIdentifier) unhidden_.emit(*application);
}

void X11Workspace::adopt(std::span<const xcb_window_t> windows) {
    identities_.learn(windows);
    struct Question {
        xcb_window_t window;
        xcb_get_window_attributes_cookie_t attributes;
        XProperty managerState, state;
    };
    std::vector<Question> questions;
    for (const auto window : windows) {
        if (inFront_.isManaged(window) || !identities_.ownerOf(window)) continue;
        questions.push_back({window, xcb_get_window_attributes(x_.xcb(), window),
                             XProperty(x_, window, "WM_STATE"), XProperty(x_, window, "_NET_WM_STATE")});
    }
    for (auto& [window, attributes, managerState, state] : questions) {
        // What a window manager says may be old, and the number another window's by now: a menu's, or one's
        // that is never shown.
        const XcbReply<xcb_get_window_attributes_reply_t> answer(
            xcb_get_window_attributes_reply(x_.xcb(), attributes, nullptr));
        const auto* owner = identities_.ownerOf(window);
        if (!owner || !answer || answer->override_redirect) continue;
        if (answer->map_state == XCB_MAP_STATE_UNMAPPED && managerState.values().empty()) {
            unshown_.insert(window);
            continue;
        }
        assign(window, *owner, isHidden(state.values()));
        if (inFront_.listed(window)) frontWindowMoved();
    }
}

void X11Workspace::shown(xcb_window_t window) {
    if (unshown_.erase(window) > 0) adopt({&window, 1});
}

void X11Workspace::assign(xcb_window_t window, const WindowOwner& owner, bool isHidden) {
    if (owner.launcher) return launchers_.add(window, *owner.launcher);
    const bool ranBefore = owner.id && background_ && background_->isRunning(*owner.id);
    const bool isNew = applications_.add(window, owner, isHidden);
    if (isNew && !ranBefore) launched_.emit(*applications_.applicationOf(window));
}

// Shown again means that every window of it was minimised. The application in front is the one the user types
// in: for any other one nothing is posted until it comes to the front, because the program would select the
// input source of an application that is not being typed in.
void X11Workspace::readState(xcb_window_t window) {
    if (!applications_.setHidden(window, isHidden(XProperty(x_, window, "_NET_WM_STATE").values()))) return;
    const auto application = applications_.applicationOf(window);
    if (window == activeWindow_ || isInFront(application->bundleIdentifier)) {
        unhidden_.emit(*application);
    } else {
        shownAgain_ = application->bundleIdentifier;
    }
}

// Some programs close their windows without destroying them, and show them again later.
void X11Workspace::readWithdrawal(xcb_window_t window) {
    constexpr std::uint32_t withdrawnState = 0;
    const auto states = XProperty(x_, window, "WM_STATE").values();
    if (states.empty() || states.front() == withdrawnState) closed(window, false);
}

// Some programs give their window its class only after it was shown.
void X11Workspace::identifyAgain(xcb_window_t window) {
    const auto before = applications_.applicationOf(window);
    const auto* owner = identities_.ownerOf(window);
    if (!before || !owner || owner->id == before->bundleIdentifier) return;
    applications_.disown(window);
    assign(window, *owner, isHidden(XProperty(x_, window, "_NET_WM_STATE").values()));
    if (window != activeWindow_) return;
    activeWindow_ = XCB_WINDOW_NONE;
    frontWindowMoved();
}

void X11Workspace::closed(xcb_window_t window, bool isDestroyed) {
    unshown_.erase(window);
    const auto application = applications_.applicationOf(window);
    const bool wasLast = isDestroyed ? applications_.remove(window) : applications_.withdraw(window);
    const bool wasActive = window == activeWindow_;
    if (wasActive) activeWindow_ = XCB_WINDOW_NONE;
    if (inFront_.closed(window)) frontWindowMoved();
    const bool hasLeft = wasLast && activeWindow_ == XCB_WINDOW_NONE &&
                         (wasActive || isInFront(application->bundleIdentifier));
    if (hasLeft) left_.emit(*std::exchange(front_, std::nullopt));
}

bool X11Workspace::isInFront(const std::optional<std::string>& id) const {
    return front_ && id && front_->bundleIdentifier == id;
}

bool X11Workspace::isHidden(const std::vector<std::uint32_t>& states) const {
    return std::ranges::find(states, x_.atom("_NET_WM_STATE_HIDDEN")) != states.end();
}

RunningApplication X11Workspace::backgroundApplication(std::string_view id) const {
    const auto entry = identities_.entries().withId(id);
    return {std::string(id), entry ? entry->name : std::string(id), ActivationPolicy::accessory, 0};
}

void X11Workspace::backgroundApplicationStarted(std::string_view id) {
    if (!applications_.withId(id)) launched_.emit(backgroundApplication(id));
}

} // namespace quorvane
