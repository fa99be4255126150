#include "platform/linux/x11/applications/X11Launchers.h"

#include "platform/linux/x11/XProperties.h"

namespace quorvane {

X11Launchers::X11Launchers(XConnection& x, LauncherWindows& launchers)
    : x_(x)
    , launchers_(launchers)
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.internAtoms({"WM_CLASS"});
    // The only way to learn of windows that pass the window manager by.
    x_.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void X11Launchers::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_MAP_NOTIFY: {
        const auto& shown = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        if (shown.override_redirect) handleShown(shown.window);
        break;
    }
    case XCB_UNMAP_NOTIFY:
        launchers_.hidden(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
        break;
    case XCB_DESTROY_NOTIFY: // The server gives the number to a new window soon.
        launchers_.destroyed(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        break;
    default:
        break;
    }
}

void X11Launchers::handleShown(xcb_window_t window) {
    const auto names = XProperty(x_, window, "WM_CLASS").texts();
    const auto* launcher = names.size() > 1 ? launcherOfClass(names[1]) : nullptr;
    // A tool tip or menu of a managed launcher is not its window.
    if (launcher && launcher->kind == LauncherWindowKind::popUp) launchers_.popUpShown(window, *launcher);
}

} // namespace quorvane
