#include "platform/linux/preferences/NoticeStrip.h"

#include <utility>

#include <QEvent>
#include <QHBoxLayout>
#include <QStyle>

namespace quorvane {
namespace {

constexpr int stripSideMargin = 20; // as in the rest of the window
constexpr int stripMargin = 6;
constexpr QColor ground(255, 190, 60, 70); // of a warning, in light colours and in dark ones

} // namespace

NoticeStrip::NoticeStrip(QWidget* parent)
    : QFrame(parent)
    , icon_(new QLabel(this))
    , text_(new QLabel(this))
    , button_(new QPushButton(this)) {
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(stripSideMargin, stripMargin, stripSideMargin, stripMargin);
    row->addWidget(icon_, 0, Qt::AlignTop);
    row->addWidget(text_, 1);
    row->addWidget(button_, 0, Qt::AlignTop);
    button_->hide();
    connect(button_, &QPushButton::clicked, this, [this] { remedy_(); });
    setAutoFillBackground(true);
    applyPalette();
    hide();
}

void NoticeStrip::setText(const QString& text) {
    text_->setText(text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
}

void NoticeStrip::setRemedy(const QString& name, std::function<void()> apply) {
    remedy_ = std::move(apply);
    button_->setText(name);
    button_->setVisible(!name.isEmpty());
}

void NoticeStrip::changeEvent(QEvent* event) {
    if (event->type() == QEvent::StyleChange) applyPalette();
    QFrame::changeEvent(event);
}

void NoticeStrip::applyPalette() {
    auto colours = palette();
    colours.setColor(QPalette::Window, ground);
    setPalette(colours);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    icon_->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(side));
}

} // namespace quorvane
