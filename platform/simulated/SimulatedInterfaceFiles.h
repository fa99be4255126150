#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/InterfaceFiles.h"
#include "platform/NotificationCenter.h"

namespace quorvane {

class SimulatedWindow : public Window {
public:
    SimulatedWindow(std::string windowTitle, NotificationCenter& notifications)
        : title_(std::move(windowTitle))
        , notifications_(notifications) {}

    std::string title() const override { return title_; }
    void setStyle(const WindowStyle& newStyle) override { style = newStyle; }
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

class SimulatedView : public View {
public:
    void setHidden(bool hidden) override { isHidden = hidden; }

    bool isHidden = false;
};

class SimulatedIconView : public IconView {
public:
    void setHidden(bool hidden) override { isHidden = hidden; }
    void setImage(ImageRef newImage) override { image = std::move(newImage); }

    bool isHidden = false;
    ImageRef image;
};

class SimulatedInterfaceFiles : public InterfaceFiles {
public:
    explicit SimulatedInterfaceFiles(NotificationCenter& notifications)
        : window("", notifications)
        , inputIconWindow("", notifications)
        , notifications_(notifications) {}

    MainInterface mainInterface() override { return {window, inputIconWindow, iconView, iconBox}; }
    std::unique_ptr<Window> loadWindow(std::string_view nibName) override;
    bool hasWindow(std::string_view nibName) const override { return nibName == "Preferences"; }

    SimulatedWindow window;
    SimulatedWindow inputIconWindow;
    SimulatedIconView iconView;
    SimulatedView iconBox;
    std::string preferencesTitle = "Quorvane"; ///< Another text where it is translated.

    /// The windows made from interface files, oldest first. They belong to whoever loaded them.
    std::vector<SimulatedWindow*> loadedWindows;

private:
    NotificationCenter& notifications_;
};

} // namespace quorvane
