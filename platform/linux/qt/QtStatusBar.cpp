#include "platform/linux/qt/QtStatusBar.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <QSystemTrayIcon>

#include "platform/linux/Log.h"
#include "platform/linux/qt/QtImage.h"

namespace quorvane {
namespace {

constexpr int tileSize = 64; // pixels: trays scale it to theirs

/// A tray does not tell the colour of its ground, so a template brings its own: the shape in white on a dark
/// tile, to be seen on light and on dark panels.
QIcon iconOfTemplate(const QImage& shape) {
    QImage glyph = shape.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    glyph.setDevicePixelRatio(1);
    QPainter glyphPainter(&glyph);
    glyphPainter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    glyphPainter.fillRect(glyph.rect(), Qt::white);
    glyphPainter.end();

    QImage tile(tileSize, tileSize, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(52, 58, 70));
    painter.drawRoundedRect(tile.rect(), tileSize / 5.0, tileSize / 5.0);
    painter.drawImage(tile.rect().marginsRemoved(QMargins(5, 5, 5, 5)), glyph);
    painter.end();
    return QIcon(QPixmap::fromImage(tile));
}

class QtStatusItem : public StatusItem {
public:
    void setTemplateImage(ImageRef image) override {
        const auto shape = QtImage::unwrapped(image);
        if (!shape.isNull()) tray_.setIcon(iconOfTemplate(shape));
    }

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
