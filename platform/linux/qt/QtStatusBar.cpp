#include "platform/linux/qt/QtStatusBar.h"

#include <QAction>
#include <QMenu>
#include <QSystemTrayIcon>

#include "platform/linux/Log.h"
#include "platform/linux/qt/TemplateIcon.h"

namespace quorvane {
namespace {

class QtStatusItem : public StatusItem {
public:
    void setTemplateImage(ImageRef image) override { tray_.setIcon(iconOfTemplate(image)); }

    void setMenu(Menu menu) override {
        menu_.clear();
        for (auto& item : menu) {
            auto* action = menu_.addAction(QString::fromStdString(item.title));
            action->setEnabled(item.isEnabled);
            QObject::connect(action, &QAction::triggered, action, std::move(item.action));
        }
        tray_.setContextMenu(&menu_);
    }

    void setHighlightMode(bool /*highlights*/) override {} // a tray highlights its items as it likes

    void setVisible(bool visible) override { tray_.setVisible(visible); }

private:
    QMenu menu_;
    QSystemTrayIcon tray_;
};

} // namespace

std::unique_ptr<StatusItem> QtStatusBar::statusItemWithLength(double /*length*/) {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) logLine("no system tray: the status item cannot be seen");
    return std::make_unique<QtStatusItem>();
}

} // namespace quorvane
