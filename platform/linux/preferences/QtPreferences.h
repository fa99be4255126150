#pragma once

#include <memory>

#include "platform/NotificationCenter.h"
#include "platform/PreferencesInterface.h"
#include "platform/linux/keyboard/PrintedKeyboard.h"
#include "platform/linux/preferences/Notices.h"
#include "platform/linux/qt/WindowHost.h"

namespace quorvane {

/// The preferences window of this desktop, made of `resources/Preferences.ui`.
class QtPreferences : public PreferencesInterface {
public:
    /// What the window needs of the desktop; all of it must outlive the window.
    struct Neighbours {
        WindowHost& host;
        PrintedKeyboard& keyboard;
        NotificationCenter& notifications;
        Notices& notices;
        std::string sessionNotice; ///< Shown where a list is empty; empty: nothing is.
    };

    explicit QtPreferences(const Neighbours& neighbours);
    ~QtPreferences() override;

    PreferencesOutlets outlets() override;
    void connect(PreferencesActions& actions, TableSource& source) override;

private:
    struct Widgets;
    std::unique_ptr<Widgets> widgets_;
};

} // namespace quorvane
