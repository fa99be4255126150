#pragma once

#include <memory>

#include "platform/InterfaceFiles.h"
#include "platform/macos/preferences/MacPreferences.h"
#include "platform/macos/shell/MacIndicatorWindow.h"
#include "platform/macos/shell/MacKeyWindow.h"

namespace quorvane {

/// The program's windows, made in code.
class MacInterfaceFiles : public InterfaceFiles {
public:
    /// Everything given must outlive this object and the windows it makes.
    explicit MacInterfaceFiles(const MacPreferences::Neighbours& neighbours);

    MainInterface mainInterface() override;
    std::unique_ptr<PreferencesInterface> loadPreferences() override;

    /// The preferences window that was made last; nil before, and when it is gone.
    NSWindow* preferencesWindow() const { return preferencesWindow_; }

private:
    MacPreferences::Neighbours neighbours_;
    MacKeyWindow window_;
    MacIndicatorWindow inputIconWindow_;
    __weak NSWindow* preferencesWindow_ = nil;
};

} // namespace quorvane
