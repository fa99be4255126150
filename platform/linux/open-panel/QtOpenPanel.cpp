#include "platform/linux/open-panel/QtOpenPanel.h"

#include <utility>

#include "platform/linux/qt/MainWindow.h"

namespace quorvane {

QtOpenPanel::~QtOpenPanel() {
    delete panel_;
}

void QtOpenPanel::beginChoosingApplication(
    std::function<void(std::optional<std::string> bundleIdentifier)> completion) {
    const bool isOpen = panel_ && panel_->isVisible();
    if (!isOpen) panel_ = new ApplicationPanel(entries_, mainWindow());
    panel_->setCompletion(std::move(completion));
    panel_->show();
    if (isOpen) panel_->activateWindow();
}

} // namespace quorvane
