#include "platform/linux/preferences/CellDelegate.h"

#include <cmath>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolTip>

#include "platform/linux/qt/ApplicationIcon.h"
#include "platform/linux/qt/PlainText.h"
#include "platform/linux/qt/QtImage.h"
#include "platform/linux/qt/Shapes.h"

namespace quorvane {
namespace {

constexpr int textMargin = 4;
constexpr int longestDrawn = 500; // characters; no column is as wide

QColor textColour(const QStyleOptionViewItem& option) {
    const auto group = !(option.state & QStyle::State_Enabled)  ? QPalette::Disabled
                       : !(option.state & QStyle::State_Active) ? QPalette::Inactive
                                                                : QPalette::Normal;
    const bool isSelected = option.state & QStyle::State_Selected;
    return option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

QRect placeOfText(const QRect& cell, const TextFieldPart& part) {
    return cell.adjusted(static_cast<int>(part.frame.x) + textMargin, 0, -textMargin, 0);
}

QString drawnText(const TextFieldPart& part, const QFontMetrics& font, int width) {
    return font.elidedText(QString::fromStdString(part.stringValue).left(longestDrawn), Qt::ElideRight,
                           width);
}

/// The nearest place where a picture's pixels are the screen's, and so stay sharp.
QPointF onWholePixel(const QPainter& painter, const QPointF& place) {
    const auto& toPixels = painter.deviceTransform();
    return toPixels.inverted().map(QPointF(toPixels.map(place).toPoint()));
}

} // namespace

std::optional<IconLoader::Icon> CellDelegate::iconToLoad(const ImageViewPart& part, double pixelsPerPoint) {
    const auto* icon = dynamic_cast<const ApplicationIcon*>(part.image.get());
    if (!icon) return std::nullopt;
    return IconLoader::Icon{icon->name(), static_cast<int>(part.frame.width),
                            static_cast<int>(part.frame.height), pixelsPerPoint};
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    auto item = option;
    const bool isCurrent = item.state & QStyle::State_HasFocus;
    item.state.setFlag(QStyle::State_HasFocus, false);
    option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &item, painter, option.widget);
    const auto& cell = model_.cell(index.row(), index.column());
    for (const auto& part : cell.parts) {
        if (const auto* image = std::get_if<ImageViewPart>(&part)) drawImage(*painter, item, *image);
        if (const auto* text = std::get_if<TextFieldPart>(&part))
            drawText(*painter, item, *text, index.data(Qt::FontRole).value<QFont>());
    }
    if (!isCurrent) return;
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(option.state & QStyle::State_Selected ? textColour(option)
                                                          : option.palette.color(QPalette::Highlight));
    painter->drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter->restore();
}

void CellDelegate::drawImage(QPainter& painter, const QStyleOptionViewItem& option,
                             const ImageViewPart& part) const {
    const auto pixelsPerPoint = option.widget->devicePixelRatioF();
    const auto icon = iconToLoad(part, pixelsPerPoint);
    const auto image = icon ? QImage() : QtImage::unwrapped(part.image);
    const auto pixmap = icon              ? icons_.pixmapOf(*icon)
                        : part.isTemplate ? QPixmap::fromImage(inColour(image, textColour(option)))
                                          : QPixmap::fromImage(image);
    if (pixmap.isNull()) return;
    const QSizeF frame(part.frame.width, part.frame.height);
    auto size = pixmap.deviceIndependentSize();
    const auto pixel = 1 / pixelsPerPoint;
    // Where points are no whole numbers of pixels, an icon may well be a part of a pixel larger.
    if (size.width() >= frame.width() + pixel || size.height() >= frame.height() + pixel)
        size.scale(frame, Qt::KeepAspectRatio);
    const auto& cell = option.rect;
    const QRectF place(std::round(cell.x() + part.frame.x + (frame.width() - size.width()) / 2),
                       std::round(cell.y() + (cell.height() - size.height()) / 2), size.width(),
                       size.height());
    const auto mirrored = QStyle::visualRect(option.direction, cell, place.toAlignedRect());
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRectF(onWholePixel(painter, mirrored.topLeft()), size), pixmap,
                       QRectF(pixmap.rect()));
    painter.restore();
}

void CellDelegate::drawText(QPainter& painter, const QStyleOptionViewItem& option, const TextFieldPart& part,
                            const QFont& font) const {
    painter.save();
    painter.setFont(font);
    painter.setPen(textColour(option));
    const auto place = placeOfText(option.rect, part);
    const auto alignment = QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawText(QStyle::visualRect(option.direction, option.rect, place),
                     static_cast<int>(alignment) | Qt::TextSingleLine,
                     drawnText(part, QFontMetrics(font), place.width()));
    painter.restore();
}

/// A text that can be read in full needs no tool tip.
bool CellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const auto* text = partOf<TextFieldPart>(model_.cell(index.row(), index.column()));
    QString toolTip;
    if (text) {
        const QFontMetrics font(index.data(Qt::FontRole).value<QFont>());
        const auto whole = QString::fromStdString(text->stringValue);
        if (drawnText(*text, font, placeOfText(option.rect, *text).width()) != whole) toolTip = whole;
        if (text->toolTip != text->stringValue && !text->toolTip.empty())
            toolTip = QString::fromStdString(text->toolTip);
    }
    QToolTip::showText(event->globalPos(), toolTipOf(toolTip), view);
    return true;
}

bool CellDelegate::editorEvent(QEvent* /*event*/, QAbstractItemModel* /*model*/,
                               const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) {
    return false; // A check box is a widget, and takes its clicks itself.
}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& index) const {
    auto* editor = new QLineEdit(parent);
    editor->setAccessibleName(model_.headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    return editor;
}

void CellDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* line = qobject_cast<QLineEdit*>(editor);
    const auto text = index.data(Qt::EditRole).toString();
    // What is being typed outlives a reload.
    if (line && !line->isModified() && line->text() != text) line->setText(text);
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const auto* line = qobject_cast<QLineEdit*>(editor);
    if (line && line->isModified()) model->setData(index, line->text(), Qt::EditRole);
}

void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& /*index*/) const {
    editor->setGeometry(option.rect);
}

} // namespace quorvane
