#pragma once

#include <string>
#include <vector>

#include "platform/NotificationCenter.h"
#include "platform/Window.h"

namespace quorvane {

class SimulatedWindow : public Window {
public:
    SimulatedWindow(std::string windowTitle, NotificationCenter& notifications)
        : title_(std::move(windowTitle))
        , notifications_(notifications) {}

    std::string title() const override { return title_; }
    void setStyle(const WindowStyle& newStyle) override { style = newStyle; }
    void setLevel(int level) override { style.level = level; }
    void setCollectionBehavior(unsigned behavior) override { style.collectionBehavior = behavior; }
    void setMovableByWindowBackground(bool movable) override { style.isMovableByWindowBackground = movable; }
    void setFrameOrigin(Point newOrigin) override { origin = newOrigin; }
    void makeKeyAndOrderFront() override { orders.emplace_back("front"); }
    void orderOut() override { orders.emplace_back("out"); }

    /// The user closes the window.
    void close() { notifications_.post({std::string(windowWillCloseNotification), this}); }

    WindowStyle style;
    Point origin;
    std::vector<std::string> orders; ///< "front" and "out", oldest first.

private:
    std::string title_;
    NotificationCenter& notifications_;
};

} // namespace quorvane
