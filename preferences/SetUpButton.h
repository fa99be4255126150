#pragma once

#include "input/CompanionLink.h"
#include "platform/Application.h"
#include "platform/DistributedNotificationCenter.h"
#include "platform/Widgets.h"
#include "platform/Window.h"
#include "preferences/CompanionAlert.h"
#include "preferences/PreferencesLists.h"

namespace quorvane {

/// The button that starts and stops the companion application's setup mode, in which the user marks places.
class SetUpButton {
public:
    SetUpButton(const CompanionLink& companion, DistributedNotificationCenter& notifications,
                const Application& application, CompanionAlert& companionAlert, const PreferencesLists& lists,
                Window& window, Button& button)
        : companion_(companion)
        , notifications_(notifications)
        , application_(application)
        , companionAlert_(companionAlert)
        , lists_(lists)
        , window_(window)
        , button_(button) {}

    void showStopped();

    /// The button has the state that is wanted. Without the companion it is switched off again and the user
    /// is told, except while the window closes: the setup is stopped then in any case.
    void startOrStopSetUpButtonClick();

private:
    const CompanionLink& companion_;
    DistributedNotificationCenter& notifications_;
    const Application& application_;
    CompanionAlert& companionAlert_;
    const PreferencesLists& lists_;
    Window& window_;
    Button& button_;
};

} // namespace quorvane
