#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/Image.h"
#include "platform/StatusBar.h"

namespace quorvane {

/// The program's item in the status bar. Made when it is first to be seen; from then on only shown and
/// hidden.
class StatusBarIcon {
public:
    StatusBarIcon(StatusBar& statusBar, const Images& images, Menu menu, std::function<std::string()> toolTip)
        : statusBar_(statusBar)
        , images_(images)
        , menu_(std::move(menu))
        , toolTip_(std::move(toolTip)) {}

    void setHidden(bool hidden);

    /// What the tool tip would say has changed.
    void toolTipChanged() {
        if (statusItem_) statusItem_->toolTipChanged();
    }

private:
    void create();

    StatusBar& statusBar_;
    const Images& images_;
    Menu menu_;
    std::function<std::string()> toolTip_;
    std::unique_ptr<StatusItem> statusItem_;
};

} // namespace quorvane
