#include "platform/macos/Permissions.h"

#include "platform/macos/Apple.h"

namespace quorvane {

std::vector<Permission> permissions() {
    return {{"Accessibility", AXIsProcessTrusted() != 0},
            {"Input Monitoring", CGPreflightListenEventAccess()},
            {"Screen Recording", CGPreflightScreenCaptureAccess()}};
}

} // namespace quorvane
