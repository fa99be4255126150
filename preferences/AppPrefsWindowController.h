#pragma once

#include <memory>
#include <string_view>

#include "platform/InterfaceFiles.h"

namespace quorvane {

/// The name of the preferences window's interface file.
inline constexpr std::string_view preferencesNibName = "Preferences";

/// Owns the preferences window. Made at the first request and kept for the life of the process.
class AppPrefsWindowController {
public:
    AppPrefsWindowController(InterfaceFiles& interfaceFiles, std::string_view windowNibName);

    /// Null when the desktop has no such interface file.
    Window* window() const { return window_.get(); }

private:
    std::unique_ptr<Window> window_;
};

} // namespace quorvane
