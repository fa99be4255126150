#pragma once

#include "platform/linux/gnome/ShellExtension.h"
#include "platform/linux/preferences/Notices.h"

namespace quorvane {

/// Tells in the preferences window what the log says, too: that GNOME Shell does not run our extension, and
/// what the user can do about it. Both must outlive it.
class ExtensionNotices {
public:
    ExtensionNotices(ShellExtension& extension, Notices& notices);

private:
    void tell();

    ShellExtension& extension_;
    Notices& notices_;
    Subscription changes_;
};

} // namespace quorvane
