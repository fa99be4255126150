#pragma once

#include <optional>

#include <QStyledItemDelegate>

#include "platform/linux/preferences/CellModel.h"
#include "platform/linux/preferences/IconLoader.h"

namespace quorvane {

/// Draws the icons and texts of cells, and edits texts in their places.
class CellDelegate : public QStyledItemDelegate {
public:
    /// Both must outlive this object.
    CellDelegate(const CellModel& model, const IconLoader& icons, QObject* parent)
        : QStyledItemDelegate(parent)
        , model_(model)
        , icons_(icons) {}

    /// The icon that has to be loaded before this part can be drawn; none when it has its pixels.
    static std::optional<IconLoader::Icon> iconToLoad(const ImageViewPart& part, double pixelsPerPoint);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    void drawImage(QPainter& painter, const QStyleOptionViewItem& option, const ImageViewPart& part) const;
    void drawText(QPainter& painter, const QStyleOptionViewItem& option, const TextFieldPart& part,
                  const QFont& font) const;

    const CellModel& model_;
    const IconLoader& icons_;
};

} // namespace quorvane
