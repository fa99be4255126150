#pragma once

#include "platform/linux/qt/WindowHost.h"
#include "platform/linux/wayland/ShortcutsInhibitor.h"

namespace quorvane {

/// A Wayland session's: a compositor gives a window the focus only for an activation token, which the toolkit
/// takes from XDG_ACTIVATION_TOKEN, and lets no program keep its window above others or on all workspaces.
class ToolkitWindowHost : public WindowHost {
public:
    void bringToUser(QWidget& window) override;
    Subscription takeKeyboard(QWidget& widget) override;
    void keepAboveOthers(QWidget& /*window*/, bool /*above*/) override {}
    void showOnAllDesktops(QWidget& /*window*/, bool /*all*/) override {}

private:
    ShortcutsInhibitor shortcuts_;
};

} // namespace quorvane
