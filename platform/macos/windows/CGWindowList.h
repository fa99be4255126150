#pragma once

#include <functional>
#include <vector>

#include "platform/OnScreenWindowList.h"

namespace quorvane {

/// The window server's list of the windows on the screen. What is read of them needs no permission, except
/// titles: without the user's leave to record the screen, other programs' windows have none.
///
/// The system does not tell of launchers.
class CGWindowList : public OnScreenWindowList {
public:
    std::vector<WindowDescription> windows() const override;
    Subscription addLauncherObserver(std::function<void(const std::optional<OpenLauncher>&)>) override {
        return {};
    }
};

} // namespace quorvane
