#include "platform/linux/gnome/ShellWindowHost.h"

#include <unistd.h>

namespace quorvane {

void ShellWindowHost::bringToUser(QWidget& window) {
    ToolkitWindowHost::bringToUser(window);
    shell_.call("BringToUser", {int(getpid())});
}

} // namespace quorvane
