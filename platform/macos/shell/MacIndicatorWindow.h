#pragma once

#include "platform/macos/shell/MacWindow.h"

namespace quorvane {

/// The floating indicator: a small window with the icon of the current input source, and a box behind the
/// icon. It is there from the start, also while nothing is on it: where it is clear, clicks go through. It
/// never takes the focus, and a click on it does not make this program the active one.
class MacIndicatorWindow : public MacWindow {
public:
    explicit MacIndicatorWindow(NotificationCenter& notifications);

    quorvane::IconView& iconView() { return iconView_; }
    View& iconBox() { return iconBox_; }

private:
    class IconView : public quorvane::IconView {
    public:
        explicit IconView(NSImageView* view) : view_(view) {}
        NSView* native() const { return view_; }
        void setHidden(bool hidden) override;
        void setImage(ImageRef image) override;

    private:
        NSImageView* view_;
    };
    class IconBox : public View {
    public:
        explicit IconBox(NSView* view) : view_(view) {}
        NSView* native() const { return view_; }
        void setHidden(bool hidden) override;

    private:
        NSView* view_;
    };

    IconBox iconBox_;
    IconView iconView_;
};

} // namespace quorvane
