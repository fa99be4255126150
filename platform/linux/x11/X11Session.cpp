#include "platform/linux/x11/X11Session.h"

#include <utility>

#include <QGuiApplication>

namespace quorvane {

X11Session::X11Session(XConnection& x, SessionApplications& applications,
                       LayoutInputSources::DrawIcon drawIcon, std::string notice)
    : x_(x)
    , notice_(std::move(notice))
    , owners_(x, applications.owners)
    , launchers_(x, applications.launchers)
    , applications_(x, owners_, applications.workspace)
    , screens_(x, applications.workspace, qGuiApp->devicePixelRatio())
    , windowList_(x, owners_, applications.workspace, screens_, applications.launchers)
    , globalEvents_(x)
    , hotKeys_(x)
    , cursor_(x, qGuiApp->devicePixelRatio())
    , keyboard_(x)
    , layouts_(keyboard_, std::move(drawIcon))
    , printedKeyboard_(x)
    , indicator_(x, screens_)
    , windowHost_(x) {}

SessionParts X11Session::parts() {
    return {.name = "X11",
            .layouts = layouts_,
            .hotKeys = hotKeys_,
            .windowList = windowList_,
            .screens = screens_,
            .globalEvents = globalEvents_,
            .cursor = cursor_,
            .indicator = indicator_,
            .windowHost = windowHost_,
            .printedKeyboard = printedKeyboard_,
            .x = &x_,
            .notice = notice_};
}

} // namespace quorvane
