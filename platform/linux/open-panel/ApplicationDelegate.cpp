#include "platform/linux/open-panel/ApplicationDelegate.h"

#include <algorithm>

#include <QApplication>
#include <QPainter>

#include "platform/linux/open-panel/ApplicationList.h"

namespace quorvane {
namespace {

constexpr int iconSize = ApplicationList::iconSize;
constexpr int margin = 6; // points

QFont smallerFont(QFont font) {
    font.setPointSizeF(font.pointSizeF() * 0.9);
    return font;
}

/// Halfway between the text and its ground, but nearer to the text.
QColor fainter(const QColor& text, const QColor& ground) {
    const auto mixed = [](float a, float b) { return a * 0.65F + b * 0.35F; };
    return QColor::fromRgbF(mixed(text.redF(), ground.redF()), mixed(text.greenF(), ground.greenF()),
                            mixed(text.blueF(), ground.blueF()));
}

} // namespace

void ApplicationDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    QStyleOptionViewItem row(option);
    initStyleOption(&row, index);
    const auto icon = row.icon;
    const auto name = row.text;
    row.icon = {};
    row.text.clear();
    row.features &= ~(QStyleOptionViewItem::HasDecoration | QStyleOptionViewItem::HasDisplay);
    const auto* style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

    const bool isSelected = row.state.testFlag(QStyle::State_Selected);
    const auto group = row.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const auto text = row.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
    const auto ground = row.palette.color(group, isSelected ? QPalette::Highlight : QPalette::Base);
    const auto place = [&](const QRect& leftToRight) {
        return QStyle::visualRect(row.direction, row.rect, leftToRight);
    };
    const auto inner = row.rect.adjusted(margin, 0, -margin, 0);
    icon.paint(painter, place({inner.x(), inner.center().y() - iconSize / 2, iconSize, iconSize}));

    const auto texts = inner.adjusted(iconSize + margin, 0, 0, 0);
    const auto smallFont = smallerFont(row.font);
    const int nameHeight = QFontMetrics(row.font).height();
    const int idHeight = QFontMetrics(smallFont).height();
    const int top = texts.y() + (texts.height() - nameHeight - idHeight) / 2;
    const auto draw = [&](const QString& line, const QFont& font, const QColor& color, int y, int height) {
        painter->setFont(font);
        painter->setPen(color);
        const auto elided = QFontMetrics(font).elidedText(line, Qt::ElideRight, texts.width());
        painter->drawText(place({texts.x(), y, texts.width(), height}),
                          int(QStyle::visualAlignment(row.direction, Qt::AlignLeft) | Qt::AlignVCenter),
                          elided);
    };
    painter->save();
    draw(name, row.font, text, top, nameHeight);
    draw(index.data(ApplicationList::idRole).toString(), smallFont, fainter(text, ground), top + nameHeight,
         idHeight);
    painter->restore();
}

QSize ApplicationDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
    const int texts = QFontMetrics(option.font).height() + QFontMetrics(smallerFont(option.font)).height();
    return {iconSize, std::max(texts, iconSize) + margin};
}

} // namespace quorvane
