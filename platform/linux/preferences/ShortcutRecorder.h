#pragma once

#include <QAbstractButton>

#include "platform/CellView.h"
#include "platform/linux/preferences/CellControl.h"
#include "platform/linux/preferences/ShortcutKeyboard.h"
#include "shortcuts/RecorderBehaviour.h"

namespace quorvane {

/// A box that shows a key combination, and records another one when it is clicked. While it records it has
/// the keyboard for itself: no hot key fires, whoever has it.
class ShortcutRecorder : public QAbstractButton, public CellControl {
    Q_OBJECT

public:
    /// The keyboard must outlive this object.
    ShortcutRecorder(ShortcutKeyboard& keyboard, QWidget* parent);

    /// A recording goes on.
    void setPart(const ShortcutRecorderPart& part);

    /// The width in which all it says can be read.
    static int preferredWidth(const QFontMetrics& font);

    /// Why a row is marked.
    static QString textOfRefusal();

    QSize sizeHint() const override;
    QWidget& widget() override { return *this; }
    QRect placeIn(const QRect& cell) const override;
    void act() override { behaviour_.press(); }
    bool takeKey(const QKeyEvent& event) override;
    bool isInUse() const override { return behaviour_.isInUse(); }
    void endUse() override { behaviour_.end(); }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool takeKeyboard();
    Subscription watch();
    void handleRelease(const QKeyEvent& event);
    void tell();
    QString shownText() const;
    bool isMarked() const { return part_.isRefused && !isInUse(); }
    QRect placeAtEnd() const;
    QRect placeOfText() const;
    void refresh();

    ShortcutKeyboard& keyboard_;
    ShortcutRecorderPart part_;
    QAbstractButton* clearButton_;
    RecorderBehaviour behaviour_;
    Subscription keyboardChanges_;
};

} // namespace quorvane
