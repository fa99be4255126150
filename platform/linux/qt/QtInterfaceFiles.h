#pragma once

#include <memory>

#include "platform/InterfaceFiles.h"
#include "platform/linux/windows/X11Screens.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// The program's windows, drawn by Qt.
class QtInterfaceFiles : public InterfaceFiles {
public:
    /// The connection and the screens must outlive this object.
    QtInterfaceFiles(XConnection& x, const X11Screens& screens);
    ~QtInterfaceFiles() override;

    MainInterface mainInterface() override;
    std::unique_ptr<PreferencesInterface> loadPreferences() override;
    bool hasPreferences() const override { return false; }

    /// Other windows have come to the front: the floating indicator belongs above them.
    void raiseIndicator();

private:
    struct Windows;
    std::unique_ptr<Windows> windows_;
};

} // namespace quorvane
