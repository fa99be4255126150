#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/InterfaceFiles.h"
#include "shortcuts/PTHotKey.h"

namespace quorvane {

/// The name of the preferences window's interface file.
inline constexpr std::string_view preferencesNibName = "Preferences";

/// Owns the preferences window. Made at the first request and kept for the life of the process.
class AppPrefsWindowController {
public:
    /// `changeInputTo` is asked for the input source whose hot key was pressed.
    AppPrefsWindowController(InterfaceFiles& interfaceFiles, std::string_view windowNibName,
                             std::function<void(std::string_view id)> changeInputTo);

    /// Null when the desktop has no such interface file.
    Window* window() const { return window_.get(); }

    /// A hot key that was recorded in this window was pressed.
    void inputHotKeyAction(const PTHotKey& hotKey) { changeInputTo_(hotKey.identifier()); }

private:
    std::function<void(std::string_view id)> changeInputTo_;
    std::unique_ptr<Window> window_;
};

} // namespace quorvane
