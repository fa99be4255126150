#pragma once

#include <memory>

#include "platform/PreferencesInterface.h"
#include "platform/Window.h"

namespace quorvane {

/// What the main interface file holds, made before the program starts. All of it outlives the program's hub.
struct MainInterface {
    Window& window; ///< Only ordered in and out, so that a new input source reaches the front program.
    Window& inputIconWindow; ///< The floating indicator.
    IconView& iconView;      ///< The icon on it.
    View& iconBox;           ///< The box behind the icon.
};

class InterfaceFiles {
public:
    virtual ~InterfaceFiles() = default;

    virtual MainInterface mainInterface() = 0;

    /// The preferences window, new; never null.
    virtual std::unique_ptr<PreferencesInterface> loadPreferences() = 0;
};

} // namespace quorvane
