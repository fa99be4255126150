#include "platform/linux/sway/SwaySession.h"

#include <utility>

namespace quorvane {

SwaySession::SwaySession(WaylandDisplay& display, SessionApplications& applications,
                         LayoutInputSources::DrawIcon drawIcon)
    : sway_(qgetenv("SWAYSOCK").toStdString())
    , windows_(applications)
    , feed_(sway_, windows_)
    , activity_(display)
    , windowList_(applications, windows_)
    , screens_(windows_)
    , keyboard_(sway_)
    , layouts_(keyboard_, std::move(drawIcon))
    , bindings_(sway_, keyboard_)
    , hotKeys_(bindings_)
    , printedKeyboard_(layouts_)
    , indicator_(display)
    , activityChanges_(activity_.changed.connect([this] { feed_.readAnew(); })) {
    sway_.open();
}

SessionParts SwaySession::parts() {
    return {.name = "sway",
            .layouts = layouts_,
            .hotKeys = hotKeys_,
            .windowList = windowList_,
            .screens = screens_,
            .globalEvents = globalEvents_,
            .cursor = cursor_,
            .indicator = indicator_,
            .windowHost = windowHost_,
            .printedKeyboard = printedKeyboard_};
}

} // namespace quorvane
