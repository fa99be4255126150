#pragma once

#include <memory>

#include "platform/InterfaceFiles.h"
#include "platform/linux/preferences/QtPreferences.h"
#include "platform/linux/session/Session.h"

namespace quorvane {

/// The program's windows, drawn by Qt.
class QtInterfaceFiles : public InterfaceFiles {
public:
    /// Everything given must outlive this object and the windows it makes.
    QtInterfaceFiles(const SessionParts& session, NotificationCenter& notifications);
    ~QtInterfaceFiles() override;

    MainInterface mainInterface() override;
    std::unique_ptr<PreferencesInterface> loadPreferences() override;

    /// What the preferences window tells, whether it is open by now or later.
    Notices& notices() { return notices_; }

    /// Other windows have come to the front: the floating indicator belongs above them.
    void raiseIndicator();

private:
    class NoWindow;
    struct Windows;
    Notices notices_;
    QtPreferences::Neighbours neighbours_;
    std::unique_ptr<Windows> windows_;
};

} // namespace quorvane
