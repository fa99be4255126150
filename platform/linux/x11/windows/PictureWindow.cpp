#include "platform/linux/x11/windows/PictureWindow.h"

#include <chrono>
#include <string_view>
#include <utility>
#include <vector>

#include <xcb/xfixes.h>

#include "platform/linux/Log.h"
#include "platform/linux/x11/XFixes.h"
#include "platform/linux/x11/XcbReply.h"

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds windowManagersTime{100}; // to raise the window that has got the focus
constexpr std::uint8_t leftButton = 1;
constexpr int leastOpacity = 96; // of a pixel that is seen where nothing can be half-clear

/// Whoever owns this selection blends windows.
constexpr std::string_view compositor = "_NET_WM_CM_S0";

struct Visual {
    xcb_visualid_t number = 0;
    std::uint8_t depth = 0; ///< 32: with transparency.
};

/// What the server told of the connection's screen and, behind it, of the screen's depths.
const xcb_screen_t* screenWithDepths(XConnection& x) {
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(x.xcb()));
    while (screen.rem && screen.data->root != x.root())
        xcb_screen_next(&screen);
    return screen.rem ? screen.data : nullptr;
}

/// The best one whose pixels are laid out as those of a QImage; none on very old or odd servers.
std::optional<Visual> visualForPictures(XConnection& x) {
    std::optional<Visual> best;
    const auto* screen = screenWithDepths(x);
    if (!screen) return best;
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem; xcb_depth_next(&depth)) {
        const auto bits = depth.data->depth;
        if ((bits != 24 && bits != 32) || (best && best->depth > bits)) continue;
        for (auto it = xcb_depth_visuals_iterator(depth.data); it.rem; xcb_visualtype_next(&it)) {
            const auto& visual = *it.data;
            const bool fits = visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xff0000 &&
                              visual.green_mask == 0xff00 && visual.blue_mask == 0xff;
            if (fits) best = Visual{visual.visual_id, bits};
        }
    }
    return best;
}

/// The picture without half-clear pixels: each is clear or has its full colour.
QImage withoutHalfClearPixels(const QImage& picture) {
    auto result = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x)
            line[x] = qAlpha(line[x]) < leastOpacity ? 0 : line[x] | 0xff000000;
    }
    return result;
}

/// The pixels that are not clear, as rectangles one pixel high.
std::vector<xcb_rectangle_t> drawnParts(const QImage& picture) {
    std::vector<xcb_rectangle_t> parts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(line[x]) == 0) continue;
            const bool continues = x > 0 && qAlpha(line[x - 1]) != 0;
            if (!continues) parts.push_back({std::int16_t(x), std::int16_t(y), 0, 1});
            ++parts.back().width;
        }
    }
    return parts;
}

} // namespace

PictureWindow::PictureWindow(XConnection& x, std::function<bool()> mayBeDragged)
    : x_(x)
    , mayBeDragged_(std::move(mayBeDragged))
    , events_(x.onEvent([this](const auto& event) { handle(event); })) {
    x_.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    place_.setSingleShot(true);
    place_.setInterval(0);
    QObject::connect(&place_, &QTimer::timeout, &place_, [this] { place(); });
    raiseAgain_.setSingleShot(true);
    raiseAgain_.setInterval(windowManagersTime);
    QObject::connect(&raiseAgain_, &QTimer::timeout, &raiseAgain_, [this] { putOnTop(); });
}

PictureWindow::~PictureWindow() {
    if (window_ != XCB_WINDOW_NONE) xcb_destroy_window(x_.xcb(), window_);
}

void PictureWindow::show(const QImage& picture) {
    picture_ = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (window_ == XCB_WINDOW_NONE) create();
    if (window_ == XCB_WINDOW_NONE) return;
    paint();
    if (std::exchange(isShown_, true)) return;
    xcb_map_window(x_.xcb(), window_);
    raise();
}

void PictureWindow::hide() {
    if (!std::exchange(isShown_, false)) return;
    grip_.reset();
    xcb_unmap_window(x_.xcb(), window_);
}

void PictureWindow::moveTo(PixelPosition topLeft) {
    if (topLeft == position_) return;
    position_ = topLeft;
    if (window_ != XCB_WINDOW_NONE) place_.start();
}

void PictureWindow::raise() {
    if (!isShown_) return;
    place_.start();
    raiseAgain_.start();
}

void PictureWindow::place() {
    const std::int32_t values[] = {position_.x, position_.y, XCB_STACK_MODE_ABOVE};
    constexpr std::uint16_t position = XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y;
    const std::uint16_t stacking = isShown_ ? XCB_CONFIG_WINDOW_STACK_MODE : 0;
    xcb_configure_window(x_.xcb(), window_, position | stacking, values);
}

void PictureWindow::putOnTop() {
    if (!isShown_) return;
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(x_.xcb(), window_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

void PictureWindow::create() {
    const auto visual = visualForPictures(x_);
    if (!visual && std::exchange(isRefused_, true)) return;
    if (!visual) {
        logLine("the X server has no true colours: the floating indicator cannot be shown");
        return;
    }
    depth_ = visual->depth;
    window_ = xcb_generate_id(x_.xcb());
    const auto colours = xcb_generate_id(x_.xcb());
    xcb_create_colormap(x_.xcb(), XCB_COLORMAP_ALLOC_NONE, colours, x_.root(), visual->number);
    const std::uint32_t clicks = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
    const std::uint32_t values[] = {0, 0, 1, clicks, colours}; // The desktop behind does not get the clicks.
    xcb_create_window(x_.xcb(), depth_, window_, x_.root(), position_.x, position_.y,
                      static_cast<std::uint16_t>(picture_.width()),
                      static_cast<std::uint16_t>(picture_.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      visual->number,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                          XCB_CW_DONT_PROPAGATE | XCB_CW_COLORMAP,
                      values);
    // A connection has one event mask for a window, and whoever watches all windows replaces it. A grab
    // stays.
    xcb_grab_button(x_.xcb(), 0, window_, clicks | XCB_EVENT_MASK_BUTTON_1_MOTION, XCB_GRAB_MODE_ASYNC,
                    XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, leftButton, XCB_MOD_MASK_ANY);
    // So that compositors leave out the effects that they have for windows of other kinds.
    const auto type = x_.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION");
    xcb_change_property(x_.xcb(), XCB_PROP_MODE_REPLACE, window_, x_.atom("_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &type);

    firstXFixesEvent_ = useXFixes(x_);
    const auto selection = x_.atom(compositor);
    if (firstXFixesEvent_) {
        xcb_xfixes_select_selection_input(x_.xcb(), window_, selection,
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                              XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    const XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(x_.xcb(), xcb_get_selection_owner(x_.xcb(), selection), nullptr));
    isComposited_ = owner && owner->owner != XCB_WINDOW_NONE;
}

// As a window's background the picture is drawn by the server whenever it is needed.
void PictureWindow::paint() {
    const bool isBlended = isComposited_ && depth_ == 32;
    const auto image = isBlended ? picture_ : withoutHalfClearPixels(picture_);
    const auto width = static_cast<std::uint16_t>(image.width());
    const auto height = static_cast<std::uint16_t>(image.height());
    auto* xcb = x_.xcb();

    const auto pixmap = xcb_generate_id(xcb);
    const auto context = xcb_generate_id(xcb);
    xcb_create_pixmap(xcb, depth_, pixmap, window_, width, height);
    xcb_create_gc(xcb, context, pixmap, 0, nullptr);
    xcb_put_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, depth_,
                  static_cast<std::uint32_t>(image.sizeInBytes()), image.constBits());
    const std::uint32_t size[] = {width, height};
    xcb_configure_window(xcb, window_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    xcb_change_window_attributes(xcb, window_, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_free_gc(xcb, context);
    xcb_free_pixmap(xcb, pixmap);

    if (firstXFixesEvent_) {
        const auto parts =
            isBlended ? std::vector<xcb_rectangle_t>{{0, 0, width, height}} : drawnParts(image);
        const auto shape = xcb_generate_id(xcb);
        xcb_xfixes_create_region(xcb, shape, static_cast<std::uint32_t>(parts.size()), parts.data());
        xcb_xfixes_set_window_shape_region(xcb, window_, XCB_SHAPE_SK_BOUNDING, 0, 0, shape);
        xcb_xfixes_destroy_region(xcb, shape);
    }
    xcb_clear_area(xcb, 0, window_, 0, 0, 0, 0);
}

/// Only when it appears: others want to stay in front as well, and there would be no end to it.
void PictureWindow::raiseAbovePopUp(const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_MAP_NOTIFY) return;
    const auto& shown = reinterpret_cast<const xcb_map_notify_event_t&>(event);
    if (shown.override_redirect && shown.window != window_) putOnTop();
}

void PictureWindow::handle(const xcb_generic_event_t& event) {
    if (window_ == XCB_WINDOW_NONE) return;
    raiseAbovePopUp(event);
    const int type = event.response_type & 0x7f;
    if (firstXFixesEvent_ && type == *firstXFixesEvent_ + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        isComposited_ = change.owner != XCB_WINDOW_NONE;
        paint();
        return;
    }
    if (type != XCB_BUTTON_PRESS && type != XCB_BUTTON_RELEASE && type != XCB_MOTION_NOTIFY) return;
    // Events of buttons and of motions have one layout.
    const auto& mouse = reinterpret_cast<const xcb_button_press_event_t&>(event);
    if (mouse.event != window_) return;
    if (type == XCB_MOTION_NOTIFY) {
        if (grip_) {
            moveTo({nearestCoordinate(mouse.root_x - grip_->x), nearestCoordinate(mouse.root_y - grip_->y)});
        }
    } else if (mouse.detail == leftButton) {
        grip_.reset();
        if (type == XCB_BUTTON_PRESS && mayBeDragged_()) grip_ = PixelPosition{mouse.event_x, mouse.event_y};
    }
}

} // namespace quorvane
