#pragma once

#include <functional>
#include <optional>

#include <QImage>
#include <QTimer>

#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/windows/PointSpace.h"

namespace quorvane {

/// A window that is nothing but a picture, above everything on all workspaces, menus that open later
/// included, and no business of the window manager's: it is in no list of windows and never gets the focus.
/// All lengths are pixels.
///
/// It is as clear as its picture. Where no compositor blends windows it has the shape of what is drawn,
/// without half-clear pixels. Between `hide` and `show` it catches no clicks, and before the first `show`
/// there is no native window.
class PictureWindow {
public:
    /// `mayBeDragged` is asked when the left button goes down on the window: whether the window is to follow
    /// the pointer until the button is released. The connection must outlive this object.
    PictureWindow(XConnection& x, std::function<bool()> mayBeDragged);
    PictureWindow(const PictureWindow&) = delete;
    PictureWindow& operator=(const PictureWindow&) = delete;
    ~PictureWindow();

    /// Replaces the picture, which must not be null, and shows the window, which gets the picture's size.
    void show(const QImage& picture);

    void hide();
    void moveTo(PixelPosition topLeft);

    /// Puts the window above all others, and again a little later: window managers raise a window before or
    /// after it gets the focus, as they like.
    void raise();

private:
    void create();
    void paint();
    void place();
    void putOnTop();
    void raiseAbovePopUp(const xcb_generic_event_t& event);
    void handle(const xcb_generic_event_t& event);

    XConnection& x_;
    std::function<bool()> mayBeDragged_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    std::uint8_t depth_ = 0;
    std::optional<std::uint8_t> firstXFixesEvent_;
    QImage picture_;
    PixelPosition position_;
    std::optional<PixelPosition> grip_; ///< Where in the window a drag has got hold of it.
    bool isShown_ = false;
    bool isRefused_ = false; ///< The server cannot show pictures, which has been told.
    bool isComposited_ = false;
    QTimer place_; ///< Until the event at hand is handled: a layout must not wait for a window to be moved.
    QTimer raiseAgain_;
    Subscription events_;
};

} // namespace quorvane
