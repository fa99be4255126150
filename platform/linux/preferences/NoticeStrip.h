#pragma once

#include <functional>

#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace quorvane {

/// A strip across a window for what its user should know; not there while there is nothing to tell.
class NoticeStrip : public QFrame {
    Q_OBJECT

public:
    explicit NoticeStrip(QWidget* parent);

    void setText(const QString& text);

    /// A button beside the text; none without a name.
    void setRemedy(const QString& name, std::function<void()> apply);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyPalette();

    QLabel* icon_;
    QLabel* text_;
    QPushButton* button_;
    std::function<void()> remedy_;
};

} // namespace quorvane
