#include "platform/linux/preferences/RowDrag.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QPainter>
#include <QScrollBar>
#include <QTableView>

namespace quorvane {
namespace {

constexpr int lineHeight = 2;
constexpr int scrollZone = 20; // points from the table's ends
constexpr auto scrollInterval = std::chrono::milliseconds(30);

/// Drawn above the cells and their widgets, and out of the mouse's way.
class Overlay : public QWidget {
public:
    explicit Overlay(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }
};

class RowPicture : public Overlay {
public:
    RowPicture(QWidget* parent, QPixmap pixmap) : Overlay(parent), pixmap_(std::move(pixmap)) {
        resize(pixmap_.deviceIndependentSize().toSize());
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setOpacity(0.75);
        painter.drawPixmap(0, 0, pixmap_);
    }

private:
    QPixmap pixmap_;
};

class DropLine : public Overlay {
public:
    using Overlay::Overlay;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        // Its row's picture may be behind it, which is of the colour of the selection.
        QPainter(this).fillRect(rect(), palette().color(QPalette::Text));
    }
};

QRect placeOfRow(const QTableView& table, int row) {
    return {0, table.rowViewportPosition(row), table.viewport()->width(), table.rowHeight(row)};
}

} // namespace

RowDrag::RowDrag(QTableView& table, int row, const QPoint& from)
    : table_(table)
    , row_(row)
    , gap_(row)
    , grip_(from.y() - table.rowViewportPosition(row))
    , position_(from)
    , picture_(std::make_unique<RowPicture>(table.viewport(), table.viewport()->grab(placeOfRow(table, row))))
    , line_(std::make_unique<DropLine>(table.viewport())) {
    scrolling_.setInterval(scrollInterval);
    connect(&scrolling_, &QTimer::timeout, this, &RowDrag::scroll);
    table_.viewport()->setCursor(Qt::ClosedHandCursor);
    for (auto* overlay : {picture_.get(), line_.get()})
        overlay->show();
    update();
}

RowDrag::~RowDrag() {
    table_.viewport()->unsetCursor();
}

void RowDrag::moveTo(const QPoint& position) {
    position_ = position;
    const int height = table_.viewport()->height();
    const bool isAtAnEnd = position.y() < scrollZone || position.y() >= height - scrollZone;
    if (!isAtAnEnd)
        scrolling_.stop();
    else if (!scrolling_.isActive())
        scrolling_.start();
    update();
}

void RowDrag::scroll() {
    auto& bar = *table_.verticalScrollBar();
    const int height = table_.viewport()->height();
    const int above = scrollZone - position_.y();
    const int below = position_.y() - (height - scrollZone);
    const int before = bar.value();
    bar.setValue(before + (above > 0 ? -std::min(above, height) : std::min(below, height)) / 2);
    if (bar.value() == before) scrolling_.stop(); // It cannot go further.
    update();
}

void RowDrag::update() {
    const int rowCount = table_.model()->rowCount();
    const auto y = std::clamp(position_.y(), 0, std::max(0, table_.viewport()->height() - 1));
    const int under = table_.rowAt(y);
    gap_ = rowCount;
    if (under >= 0) {
        const bool isLowerHalf = y - table_.rowViewportPosition(under) >= table_.rowHeight(under) / 2;
        gap_ = under + (isLowerHalf ? 1 : 0);
    }
    constexpr int indent = 12;
    picture_->move(indent, position_.y() - grip_);
    const auto last = placeOfRow(table_, rowCount - 1);
    const int boundary = gap_ < rowCount ? table_.rowViewportPosition(gap_) : last.bottom() + 1;
    const int top =
        std::clamp(boundary - lineHeight / 2, 0, std::max(0, table_.viewport()->height() - lineHeight));
    line_->setGeometry(0, top, table_.viewport()->width(), lineHeight);
    // Rows that have come into sight have brought widgets with them.
    picture_->raise();
    line_->raise();
}

} // namespace quorvane
