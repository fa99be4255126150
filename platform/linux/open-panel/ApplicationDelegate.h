#pragma once

#include <QStyledItemDelegate>

namespace quorvane {

/// Draws an application: its icon, its name, and below that its id in a fainter colour.
class ApplicationDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace quorvane
