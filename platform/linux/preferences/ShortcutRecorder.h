#pragma once

#include <cstdint>

#include <QAbstractButton>

#include "platform/CellView.h"
#include "platform/linux/preferences/CellControl.h"
#include "platform/linux/preferences/ShortcutKeyboard.h"
#include "shortcuts/ShortcutRecording.h"

namespace quorvane {

/// A box that shows a key combination, and records another one when it is clicked. While it records it has
/// the keyboard for itself: no hot key fires, whoever has it.
class ShortcutRecorder : public QAbstractButton, public CellControl {
    Q_OBJECT

public:
    /// The keyboard must outlive this object.
    ShortcutRecorder(ShortcutKeyboard& keyboard, QWidget* parent);
    ~ShortcutRecorder() override;

    /// A recording goes on.
    void setPart(const ShortcutRecorderPart& part);

    /// The width in which all it says can be read.
    static int preferredWidth(const QFontMetrics& font);

    QSize sizeHint() const override;
    QWidget& widget() override { return *this; }
    QRect placeIn(const QRect& cell) const override;
    void act() override { click(); }
    void clear() override;
    bool isInUse() const override { return recording_.state() != State::idle; }
    void endUse() override { end(); }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using State = ShortcutRecording::State;
    using Meaning = ShortcutRecording::Meaning;
    using Display = ShortcutRecording::Display;

    void toggle();
    void begin();
    void end();
    void handlePress(const QKeyEvent& event);
    void handleRelease(const QKeyEvent& event);
    void handleModifiers();
    void tell(const PropertyList& objectValue);
    bool isEmpty() const { return !InputShortcut::ofRecord(part_.objectValue); }
    QRect placeOfText() const;
    void refresh();

    ShortcutKeyboard& keyboard_;
    ShortcutRecorderPart part_;
    ShortcutRecording recording_;
    QAbstractButton* clearButton_;
    Subscription keyboardChanges_;
};

} // namespace quorvane
