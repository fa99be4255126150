#pragma once

#include <QFrame>
#include <QLabel>
#include <QWidget>

#include "platform/Window.h"

namespace quorvane {

/// The floating indicator: a small window with the icon of the current input source, and a box behind the
/// icon. No native window exists until something is to be seen in it.
class QtIndicatorWindow : public Window {
public:
    QtIndicatorWindow();

    std::string title() const override { return {}; }
    void setStyle(const WindowStyle& style) override;
    void setFrameOrigin(Point origin) override;
    void makeKeyAndOrderFront() override { widget_.show(); }
    void orderOut() override { widget_.hide(); }

    quorvane::IconView& iconView() { return iconView_; }
    View& iconBox() { return iconBox_; }

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

    /// An empty clear window is no window at all on X11, where it would still catch the mouse.
    void showIfSeen();

    QWidget widget_;
    QFrame* box_;
    QLabel* icon_;
    IconView iconView_{*this};
    IconBox iconBox_{*this};
};

} // namespace quorvane
