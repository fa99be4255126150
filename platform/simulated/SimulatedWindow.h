#pragma once

#include <string>
#include <utility>

#include "platform/NotificationCenter.h"
#include "platform/Window.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

class SimulatedWindow : public Window {
public:
    /// `name` is what the journal calls it.
    SimulatedWindow(Journal& journal, const char* name, NotificationCenter& notifications,
                    std::string windowTitle = {})
        : journal_(journal)
        , name_(name)
        , notifications_(notifications)
        , title_(std::move(windowTitle)) {}

    std::string title() const override { return title_; }
    void setStyle(const WindowStyle& style) override {
        journal_.add(name_, " style ", style.styleMask, style.isOpaque ? " opaque" : "",
                     style.hasClearBackground ? " clear" : "");
        setCollectionBehavior(style.collectionBehavior);
        setLevel(style.level);
        setMovableByWindowBackground(style.isMovableByWindowBackground);
    }
    void setLevel(int level) override { journal_.add(name_, " level ", level); }
    void setCollectionBehavior(unsigned behavior) override { journal_.add(name_, " behavior ", behavior); }
    void setMovableByWindowBackground(bool movable) override {
        journal_.add(name_, movable ? " movable" : " not movable");
    }
    void setFrameOrigin(Point origin) override { journal_.add(name_, " at ", origin.x, ",", origin.y); }
    void makeKeyAndOrderFront() override { journal_.add(name_, " in"); }
    void orderOut() override { journal_.add(name_, " out"); }

    /// The user closes the window.
    void close() { notifications_.post({std::string(windowWillCloseNotification), this}); }

private:
    Journal& journal_;
    const char* name_;
    NotificationCenter& notifications_;
    std::string title_;
};

} // namespace quorvane
