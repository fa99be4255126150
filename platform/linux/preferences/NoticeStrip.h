#pragma once

#include <QFrame>
#include <QLabel>

namespace quorvane {

/// A strip across a window for what its user should know; not there while there is nothing to tell.
class NoticeStrip : public QFrame {
    Q_OBJECT

public:
    explicit NoticeStrip(QWidget* parent);

    void setText(const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyPalette();

    QLabel* icon_;
    QLabel* text_;
};

} // namespace quorvane
