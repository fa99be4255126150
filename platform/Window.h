#pragma once

#include <string>

#include "platform/Geometry.h"
#include "platform/Image.h"

namespace quorvane {

/// How a window looks and where it lives; the numbers are the source platform's own.
struct WindowStyle {
    unsigned styleMask = 0; ///< 0: borderless.
    bool isOpaque = true;
    bool hasClearBackground = false;
    unsigned collectionBehavior = 0; ///< 1: on all spaces.
    int level = 0;                   ///< 0: normal, 1000: above everything.
    bool isMovableByWindowBackground = false;

    bool operator==(const WindowStyle&) const = default;
};

class Window {
public:
    virtual ~Window() = default;

    virtual std::string title() const = 0;
    virtual void setStyle(const WindowStyle& style) = 0;
    virtual void setLevel(int level) = 0; ///< As in `WindowStyle`, like the next two.
    virtual void setCollectionBehavior(unsigned behavior) = 0;
    virtual void setMovableByWindowBackground(bool movable) = 0;
    virtual void setFrameOrigin(Point origin) = 0; ///< Its bottom-left corner, from the primary screen's.
    virtual void makeKeyAndOrderFront() = 0;
    virtual void orderOut() = 0;
};

class View {
public:
    virtual ~View() = default;
    virtual void setHidden(bool hidden) = 0;
};

class ImageView : public View {
public:
    virtual void setImage(ImageRef image) = 0; ///< Null shows nothing.

    /// Whether a drag on the view moves its window.
    virtual bool mouseDownCanMoveWindow() const { return false; }
};

/// The picture on the floating indicator: a drag on it moves the indicator.
class IconView : public ImageView {
public:
    bool mouseDownCanMoveWindow() const override { return true; }
};

} // namespace quorvane
