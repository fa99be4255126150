#include "platform/linux/qt/QtStatusBar.h"

#include <functional>
#include <optional>
#include <utility>

#include <QAction>
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>

#include "platform/linux/qt/NoTrayNotice.h"
#include "platform/linux/qt/PlainText.h"
#include "platform/linux/qt/ProgramIcon.h"
#include "platform/linux/qt/TemplateIcon.h"
#include "platform/linux/qt/TrayReadiness.h"

namespace quorvane {
namespace {

/// How long after a change the tool tip is told to the tray: a switch comes first, and what follows from it
/// is the same change.
constexpr int toolTipDelay = 50; // milliseconds

class QtStatusItem : public StatusItem {
public:
    QtStatusItem(XConnection* x, UserDefaults& defaults)
        : readiness_(x, [this] { makeTrayItem(); })
        , noTrayNotice_(readiness_, defaults) {
        toolTipTimer_.setSingleShot(true);
        toolTipTimer_.setInterval(toolTipDelay);
        QObject::connect(&toolTipTimer_, &QTimer::timeout, &toolTipTimer_, [this] { tellToolTip(); });
    }

    void setTemplateImage(ImageRef image) override {
        icon_ = programIcon(iconOfTemplate(image));
        if (tray_) tray_->setIcon(icon_);
    }

    void setMenu(Menu menu) override {
        menu_.clear();
        for (auto& item : menu) {
            auto* action = menu_.addAction(QString::fromStdString(item.title));
            action->setEnabled(item.isEnabled);
            QObject::connect(action, &QAction::triggered, action, std::move(item.action));
        }
    }

    void setToolTip(std::function<std::string()> toolTip) override { toolTip_ = std::move(toolTip); }

    void toolTipChanged() override {
        if (tray_ && isVisible_) toolTipTimer_.start();
    }

    void setHighlightMode(bool /*highlights*/) override {} // a tray highlights its items as it likes

    void setVisible(bool visible) override {
        isVisible_ = visible;
        if (tray_) tray_->setVisible(visible);
        toolTipChanged();
    }

private:
    void makeTrayItem() {
        tray_.emplace();
        tray_->setIcon(icon_);
        tray_->setContextMenu(&menu_);
        QObject::connect(&*tray_, &QSystemTrayIcon::activated, &*tray_, [this](auto reason) {
            if (reason == QSystemTrayIcon::Trigger) menu_.popup(QCursor::pos());
        });
        setVisible(isVisible_);
    }

    void tellToolTip() {
        const auto text = toolTip_ ? withoutMarkup(QString::fromStdString(toolTip_())) : QString();
        if (text != tray_->toolTip()) tray_->setToolTip(text);
    }

    QMenu menu_;
    QIcon icon_;
    std::function<std::string()> toolTip_;
    bool isVisible_ = false;
    QTimer toolTipTimer_;
    std::optional<QSystemTrayIcon> tray_; ///< None as long as making it could wait for another process.
    TrayReadiness readiness_;
    NoTrayNotice noTrayNotice_;
};

} // namespace

std::unique_ptr<StatusItem> QtStatusBar::statusItemWithLength(double /*length*/) {
    return std::make_unique<QtStatusItem>(x_, defaults_);
}

} // namespace quorvane
