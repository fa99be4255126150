#include "platform/linux/applications/X11Launchers.h"

#include <algorithm>
#include <utility>

#include "platform/linux/x11/XProperties.h"

namespace quorvane {
namespace {

RunningApplication applicationOf(const KnownLauncher& launcher) {
    return {std::string(launcher.desktopId), std::string(launcher.name), ActivationPolicy::accessory, 0};
}

} // namespace

X11Launchers::X11Launchers(XConnection& x)
    : x_(x)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"WM_CLASS"});
    // The only way to learn of windows that pass the window manager by.
    x_.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

const KnownLauncher* X11Launchers::openLauncher() const {
    const auto opened = windows_.find(open_);
    return opened == windows_.end() ? nullptr : opened->second.launcher;
}

std::vector<RunningApplication> X11Launchers::running() const {
    std::vector<RunningApplication> found;
    for (const auto& [number, window] : windows_) {
        auto application = applicationOf(*window.launcher);
        if (std::ranges::find(found, application) == found.end()) found.push_back(std::move(application));
    }
    return found;
}

void X11Launchers::add(xcb_window_t window, const KnownLauncher& launcher) {
    windows_.insert_or_assign(window, Window{&launcher, true});
}

void X11Launchers::focusMovedTo(xcb_window_t window) {
    focused_ = contains(window) ? window : xcb_window_t{XCB_WINDOW_NONE};
    const auto opened = windows_.find(open_);
    // A pop-up has the keys, whoever has the focus meanwhile.
    if (opened == windows_.end() || opened->second.isManaged) open(focused_);
}

void X11Launchers::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_MAP_NOTIFY: {
        const auto& shown = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        if (shown.override_redirect) handleShown(shown.window);
        break;
    }
    case XCB_UNMAP_NOTIFY:
        close(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
        break;
    case XCB_DESTROY_NOTIFY: {
        const auto window = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        close(window);
        windows_.erase(window); // the server gives the number to a new window soon
        break;
    }
    default:
        break;
    }
}

void X11Launchers::handleShown(xcb_window_t window) {
    const auto names = XProperty(x_, window, "WM_CLASS").texts();
    const auto* launcher = names.size() > 1 ? launcherOfClass(names[1]) : nullptr;
    // A tool tip or menu of a managed launcher is not its window.
    if (!launcher || launcher->kind != LauncherWindowKind::popUp) return;
    windows_.insert_or_assign(window, Window{launcher, false});
    open(window);
}

void X11Launchers::open(xcb_window_t window) {
    if (std::exchange(open_, window) != window) changed_.emit();
}

void X11Launchers::close(xcb_window_t window) {
    if (window == focused_) focused_ = XCB_WINDOW_NONE;
    if (isOpen(window)) open(focused_);
}

} // namespace quorvane
