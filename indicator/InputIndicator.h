#pragma once

#include "input/StateTip.h"
#include "platform/InterfaceFiles.h"
#include "platform/Screens.h"

namespace quorvane {

/// The floating window that shows the current input source.
class InputIndicator {
public:
    InputIndicator(const MainInterface& interface, const Screens& screens, StateTip& stateTip)
        : interface_(interface)
        , screens_(screens)
        , stateTip_(stateTip) {}

    /// A clear, borderless window above everything, on all spaces, moved by its background.
    void setUpWindow();

    /// Shows the current icon at the main screen's top-right corner if the user wants the indicator, else
    /// hides it. Orders the window neither in nor out.
    void showInitialState();

private:
    MainInterface interface_;
    const Screens& screens_;
    StateTip& stateTip_;
};

} // namespace quorvane
