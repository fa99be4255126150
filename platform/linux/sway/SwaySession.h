#pragma once

#include "platform/linux/keyboard/AskedHotKeys.h"
#include "platform/linux/keyboard/LayoutInputSources.h"
#include "platform/linux/keyboard/LayoutPrintedKeyboard.h"
#include "platform/linux/session/CompositorWindowList.h"
#include "platform/linux/session/Session.h"
#include "platform/linux/session/ToolkitScreens.h"
#include "platform/linux/session/ToolkitWindowHost.h"
#include "platform/linux/session/Unavailable.h"
#include "platform/linux/sway/SwayHotKeys.h"
#include "platform/linux/sway/SwayKeyboard.h"
#include "platform/linux/sway/SwayWindows.h"
#include "platform/linux/wayland/LayerIndicator.h"
#include "platform/linux/wayland/ToplevelActivity.h"

namespace quorvane {

/// A session of sway: its own socket tells of windows and layouts and takes commands, and Wayland tells when
/// a launcher takes the keys.
class SwaySession : public Session {
public:
    /// Needs a QGuiApplication. All must outlive this object; the display has told nothing yet.
    SwaySession(WaylandDisplay& display, SessionApplications& applications,
                LayoutInputSources::DrawIcon drawIcon);

    SessionParts parts() override;

private:
    SwayIpc sway_;
    CompositorWindows windows_;
    SwayWindows feed_;
    ToplevelActivity activity_;
    CompositorWindowList windowList_;
    ToolkitScreens screens_;
    SwayKeyboard keyboard_;
    LayoutInputSources layouts_;
    SwayHotKeys bindings_;
    AskedHotKeys hotKeys_;
    NoGlobalEvents globalEvents_;
    UnknownCursor cursor_;
    LayoutPrintedKeyboard printedKeyboard_;
    LayerIndicator indicator_;
    ToolkitWindowHost windowHost_;
    Subscription activityChanges_;
};

} // namespace quorvane
