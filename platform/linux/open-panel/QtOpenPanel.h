#pragma once

#include <functional>

#include <QPointer>

#include "platform/OpenPanel.h"
#include "platform/linux/open-panel/ApplicationPanel.h"

namespace quorvane {

/// One window to choose an application in, at the window the user works in: asked again while it is open, it
/// comes to the front, and who asked last is told.
class QtOpenPanel : public OpenPanel {
public:
    explicit QtOpenPanel(DesktopEntries& entries) : entries_(entries) {}
    ~QtOpenPanel() override;
    QtOpenPanel(const QtOpenPanel&) = delete;
    QtOpenPanel& operator=(const QtOpenPanel&) = delete;

    void beginChoosingApplication(
        std::function<void(std::optional<std::string> bundleIdentifier)> completion) override;

private:
    DesktopEntries& entries_;
    QPointer<ApplicationPanel> panel_; ///< Null while it is not open.
};

} // namespace quorvane
