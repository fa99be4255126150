#include "app/StatusBarIcon.h"

namespace quorvane {

void StatusBarIcon::setHidden(bool hidden) {
    if (!statusItem_ && !hidden) create();
    if (statusItem_) statusItem_->setVisible(!hidden);
}

void StatusBarIcon::create() {
    statusItem_ = statusBar_.statusItemWithLength(variableStatusItemLength);
    statusItem_->setTemplateImage(images_.imageNamed("menuBarIcon"));
    statusItem_->setMenu(menu_);
    statusItem_->setHighlightMode(true);
    statusItem_->setToolTip(toolTip_);
    statusItem_->toolTipChanged();
}

} // namespace quorvane
