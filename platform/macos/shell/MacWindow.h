#pragma once

#include "platform/NotificationCenter.h"
#include "platform/Window.h"
#import "platform/macos/AppKit.h"

namespace quorvane {

/// Any window of AppKit's. The numbers of a style are AppKit's own, and so are the coordinates.
class MacWindow : public Window {
public:
    /// When the window closes, `windowWillCloseNotification` is posted to `notifications`, which must outlive
    /// this object.
    MacWindow(NSWindow* window, NotificationCenter& notifications);
    MacWindow(const MacWindow&) = delete;
    MacWindow& operator=(const MacWindow&) = delete;
    ~MacWindow() override;

    std::string title() const override;
    void setStyle(const WindowStyle& style) override;
    void setLevel(int level) override;
    void setCollectionBehavior(unsigned behavior) override;
    void setMovableByWindowBackground(bool movable) override;
    void setFrameOrigin(Point origin) override;

    /// Also when it was minimised, and above the windows of another application that is active. A window that
    /// cannot become key gets no focus by it.
    void makeKeyAndOrderFront() override;
    void orderOut() override;

    NSWindow* native() const { return native_; }

private:
    NSWindow* native_;
    id closes_; ///< The observer of its closing.
};

} // namespace quorvane
