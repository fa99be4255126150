#include "platform/linux/kwin/KWinSession.h"

#include <utility>

namespace quorvane {

KWinSession::KWinSession(const QDBusConnection& bus, WaylandDisplay& display,
                         SessionApplications& applications, LayoutInputSources::DrawIcon drawIcon)
    : windows_(applications)
    , messages_(bus, QStringLiteral("org.kde.KWin"))
    , script_(bus, messages_)
    , feed_(messages_, script_, windows_)
    , windowList_(applications, windows_)
    , screens_(windows_)
    , keyboard_(bus)
    , layouts_(keyboard_, std::move(drawIcon))
    , shortcuts_(bus, keyboard_)
    , hotKeys_(shortcuts_)
    , printedKeyboard_(layouts_)
    , indicator_(display) {}

SessionParts KWinSession::parts() {
    return {.name = "KWin",
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
