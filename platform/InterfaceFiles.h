#pragma once

#include <memory>
#include <string_view>

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

    /// The window of an interface file; null when this build of the desktop has no such file.
    virtual std::unique_ptr<Window> loadWindow(std::string_view nibName) = 0;

    virtual bool hasWindow(std::string_view nibName) const = 0;
};

} // namespace quorvane
