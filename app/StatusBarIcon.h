#pragma once

#include <memory>

#include "platform/Image.h"
#include "platform/StatusBar.h"

namespace quorvane {

/// The program's item in the status bar. Made when it is first to be seen; from then on only shown and
/// hidden.
class StatusBarIcon {
public:
    StatusBarIcon(StatusBar& statusBar, const Images& images, Menu menu)
        : statusBar_(statusBar)
        , images_(images)
        , menu_(std::move(menu)) {}

    void setHidden(bool hidden);

private:
    void create();

    StatusBar& statusBar_;
    const Images& images_;
    Menu menu_;
    std::unique_ptr<StatusItem> statusItem_;
};

} // namespace quorvane
