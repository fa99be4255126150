#pragma once

#include "platform/linux/gnome/GnomeShell.h"
#include "platform/linux/session/ToolkitWindowHost.h"

namespace quorvane {

/// GNOME Shell gives a window the focus, and shows the workspace that it is on, when the extension asks.
class ShellWindowHost : public ToolkitWindowHost {
public:
    /// The shell must outlive this object.
    explicit ShellWindowHost(GnomeShell& shell) : shell_(shell) {}

    void bringToUser(QWidget& window) override;

private:
    GnomeShell& shell_;
};

} // namespace quorvane
