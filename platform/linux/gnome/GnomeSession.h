#pragma once

#include <QDBusConnection>

#include "platform/linux/gnome/ShellExtension.h"
#include "platform/linux/gnome/ShellHotKeys.h"
#include "platform/linux/gnome/ShellIndicator.h"
#include "platform/linux/gnome/ShellRules.h"
#include "platform/linux/gnome/ShellSources.h"
#include "platform/linux/gnome/ShellWindowHost.h"
#include "platform/linux/keyboard/LayoutPrintedKeyboard.h"
#include "platform/linux/session/CompositorWindowList.h"
#include "platform/linux/session/Session.h"
#include "platform/linux/session/ToolkitScreens.h"
#include "platform/linux/session/Unavailable.h"

namespace quorvane {

/// A session of GNOME Shell: everything goes through our extension of it (extension/). It may come, go and
/// come back.
class GnomeSession : public Session {
public:
    /// Needs a QApplication. The applications must outlive this object.
    GnomeSession(const QDBusConnection& bus, SessionApplications& applications, InputMethodIcons icons);

    SessionParts parts() override;

private:
    std::vector<Subscription> windowNews();

    InputMethodIcons icons_;
    ShellMessages messages_;
    GnomeShell shell_;
    ShellExtension extension_;
    CompositorWindows windows_;
    std::vector<Subscription> windowNews_; ///< Made before the subscriptions of the objects below.
    ShellSources sources_;
    ShellRules rules_;
    ShellHotKeys hotKeyBindings_;
    AskedHotKeys hotKeys_;
    ShellIndicator indicator_;
    ShellWindowHost windowHost_;
    CompositorWindowList windowList_;
    ToolkitScreens screens_;
    LayoutPrintedKeyboard printedKeyboard_;
    NoGlobalEvents globalEvents_;
    UnknownCursor cursor_;
};

} // namespace quorvane
