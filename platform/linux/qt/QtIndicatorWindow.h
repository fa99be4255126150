#pragma once

#include <QImage>
#include <QTimer>

#include "platform/Window.h"
#include "platform/linux/qt/IndicatorPicture.h"
#include "platform/linux/qt/IndicatorSurface.h"

namespace quorvane {

/// The floating indicator: a small window with the icon of the current input source, and a box behind the
/// icon. Drawn by Qt, but no window of Qt's.
///
/// An empty clear window is no window at all, since it would still catch the mouse. Changes are shown when
/// control returns to the event loop, several at once in one step.
class QtIndicatorWindow : public Window {
public:
    /// The surface must outlive this object.
    explicit QtIndicatorWindow(IndicatorSurface& surface);

    std::string title() const override { return {}; }
    void setStyle(const WindowStyle& style) override;
    void setLevel(int level) override { style_.level = level; }
    void setCollectionBehavior(unsigned behavior) override { style_.collectionBehavior = behavior; }
    void setMovableByWindowBackground(bool movable) override { style_.isMovableByWindowBackground = movable; }
    void setFrameOrigin(Point origin) override;
    void makeKeyAndOrderFront() override;
    void orderOut() override;

    quorvane::IconView& iconView() { return iconView_; }
    View& iconBox() { return iconBox_; }

    /// Whether the box is dark, as the user's windows are.
    void setDark(bool isDark);

    /// Other windows have come to the front: the indicator belongs above them.
    void raise() { surface_.raise(); }

private:
    class IconView : public quorvane::IconView {
    public:
        explicit IconView(QtIndicatorWindow& window) : window_(window) {}
        void setHidden(bool hidden) override;
        void setImage(ImageRef image) override;

    private:
        QtIndicatorWindow& window_;
    };
    class IconBox : public View {
    public:
        explicit IconBox(QtIndicatorWindow& window) : window_(window) {}
        void setHidden(bool hidden) override;

    private:
        QtIndicatorWindow& window_;
    };

    void update();

    IndicatorSurface& surface_;
    WindowStyle style_;
    QImage icon_;
    bool isOrderedIn_ = true; ///< As the interface file has it.
    bool isIconHidden_ = true;
    bool isBoxHidden_ = true;
    bool isDark_ = false;
    IconView iconView_{*this};
    IconBox iconBox_{*this};
    QTimer changed_;
};

} // namespace quorvane
