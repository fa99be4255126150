#pragma once

#include <QDBusConnection>

#include "platform/linux/keyboard/AskedHotKeys.h"
#include "platform/linux/keyboard/LayoutInputSources.h"
#include "platform/linux/keyboard/LayoutPrintedKeyboard.h"
#include "platform/linux/kwin/KGlobalAccelHotKeys.h"
#include "platform/linux/kwin/KWinWindows.h"
#include "platform/linux/kwin/PlasmaKeyboard.h"
#include "platform/linux/session/CompositorWindowList.h"
#include "platform/linux/session/Session.h"
#include "platform/linux/session/ToolkitScreens.h"
#include "platform/linux/session/ToolkitWindowHost.h"
#include "platform/linux/session/Unavailable.h"
#include "platform/linux/wayland/LayerIndicator.h"

namespace quorvane {

/// A session of KWin on Wayland: a script inside it tells of windows, and its services on the session bus
/// have the layouts and the hot keys.
class KWinSession : public Session {
public:
    /// Needs a QGuiApplication. All must outlive this object; the display has told nothing yet.
    KWinSession(const QDBusConnection& bus, WaylandDisplay& display, SessionApplications& applications,
                LayoutInputSources::DrawIcon drawIcon);

    SessionParts parts() override;

private:
    CompositorWindows windows_;
    ShellMessages messages_;
    KWinScript script_;
    KWinWindows feed_;
    CompositorWindowList windowList_;
    ToolkitScreens screens_;
    PlasmaKeyboard keyboard_;
    LayoutInputSources layouts_;
    KGlobalAccelHotKeys shortcuts_;
    AskedHotKeys hotKeys_;
    NoGlobalEvents globalEvents_;
    UnknownCursor cursor_;
    LayoutPrintedKeyboard printedKeyboard_;
    LayerIndicator indicator_;
    ToolkitWindowHost windowHost_;
};

} // namespace quorvane
