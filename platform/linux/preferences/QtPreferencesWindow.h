#pragma once

#include <optional>

#include <QMainWindow>

#include "platform/NotificationCenter.h"
#include "platform/Window.h"
#include "platform/linux/qt/WindowHost.h"

namespace quorvane {

/// The preferences window, without what is in it. Closing it hides it.
class QtPreferencesWindow : public QMainWindow, public Window {
public:
    /// Posts to the centre when the user closes it. Both must outlive this object.
    QtPreferencesWindow(WindowHost& host, NotificationCenter& notifications);

    std::string title() const override { return windowTitle().toStdString(); }
    void setStyle(const WindowStyle& style) override;
    void setLevel(int level) override;
    void setCollectionBehavior(unsigned behavior) override;
    void setMovableByWindowBackground(bool movable) override { isMovableByBackground_ = movable; }
    void setFrameOrigin(Point origin) override;
    void makeKeyAndOrderFront() override;
    void orderOut() override { hide(); }

    /// After the widgets were made: gives the ones that the interface file marks their look. The pictures of
    /// "templateIcon" and buttons that are links get the palette's colours, now and whenever it changes.
    void dressUp();

protected:
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void applyPalette();
    void fitScreen();

    WindowHost& host_;
    NotificationCenter& notifications_;
    bool isMovableByBackground_ = false;
    std::optional<QPoint> pressedAt_; ///< Where on the background the button was pressed that is still held.
};

} // namespace quorvane
