#include "platform/linux/wayland/LayerIndicator.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QGuiApplication>
#include <linux/input-event-codes.h>

#include "platform/linux/Log.h"
#include "platform/linux/qt/IndicatorPicture.h"
#include "platform/linux/wayland/PictureBuffer.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"

namespace quorvane {
namespace {

constexpr std::uint32_t namedOutputs = 4; ///< The version of wl_output that tells names.

/// Any number will do.
int nearestPlace(double coordinate) {
    constexpr double farthest = 100'000;
    return std::isnan(coordinate) ? 0 : int(std::lround(std::clamp(coordinate, -farthest, farthest)));
}

template <class... Arguments>
constexpr auto ignore = [](void* /*data*/, Arguments... /*arguments*/) {};

} // namespace

struct LayerIndicator::Output {
    WaylandRef<wl_output> native;
    std::string name;
};

/// What the compositor calls: the object behind `data` is the indicator, or an output.
struct LayerIndicator::Listeners {
    static LayerIndicator& self(void* data) { return *static_cast<LayerIndicator*>(data); }

    static void outputName(void* data, wl_output* /*output*/, const char* name) {
        static_cast<Output*>(data)->name = name;
    }
    static void configure(void* data, zwlr_layer_surface_v1* /*layer*/, std::uint32_t serial,
                          std::uint32_t /*width*/, std::uint32_t /*height*/) {
        self(data).configured(serial);
    }
    // The screen has gone: the next place it is asked for is on another one.
    static void closed(void* data, zwlr_layer_surface_v1* /*layer*/) { self(data).destroy(); }

    static void entered(void* data, wl_pointer* /*pointer*/, std::uint32_t /*serial*/,
                        wl_surface* /*surface*/, wl_fixed_t x, wl_fixed_t y) {
        self(data).pointerAt_ = {wl_fixed_to_double(x), wl_fixed_to_double(y)};
    }
    static void left(void* data, wl_pointer* /*pointer*/, std::uint32_t /*serial*/, wl_surface* /*surface*/) {
        self(data).grip_.reset();
    }
    static void moved(void* data, wl_pointer* /*pointer*/, std::uint32_t /*time*/, wl_fixed_t x,
                      wl_fixed_t y) {
        self(data).drag({wl_fixed_to_double(x), wl_fixed_to_double(y)});
    }
    static void clicked(void* data, wl_pointer* /*pointer*/, std::uint32_t /*serial*/, std::uint32_t /*time*/,
                        std::uint32_t button, std::uint32_t state) {
        auto& indicator = self(data);
        if (button != BTN_LEFT) return;
        indicator.grip_.reset();
        if (state == WL_POINTER_BUTTON_STATE_PRESSED && indicator.mayBeDragged())
            indicator.grip_ = indicator.pointerAt_;
    }
    static void capabilities(void* data, wl_seat* from, std::uint32_t offered) {
        const bool hasPointer = offered & WL_SEAT_CAPABILITY_POINTER;
        self(data).pointer_.reset(hasPointer ? wl_seat_get_pointer(from) : nullptr);
        if (hasPointer) wl_pointer_add_listener(self(data).pointer_.get(), &pointer, data);
    }

    static constexpr wl_output_listener output{
        .geometry = ignore<wl_output*, int, int, int, int, int, const char*, const char*, int>,
        .mode = ignore<wl_output*, std::uint32_t, int, int, int>,
        .done = ignore<wl_output*>,
        .scale = ignore<wl_output*, int>,
        .name = outputName,
        .description = ignore<wl_output*, const char*>};
    static constexpr zwlr_layer_surface_v1_listener layer{.configure = configure, .closed = closed};
    static constexpr wl_pointer_listener pointer{.enter = entered,
                                                 .leave = left,
                                                 .motion = moved,
                                                 .button = clicked,
                                                 .axis =
                                                     ignore<wl_pointer*, std::uint32_t, std::uint32_t, int>,
                                                 .frame = nullptr,
                                                 .axis_source = nullptr,
                                                 .axis_stop = nullptr,
                                                 .axis_discrete = nullptr};
    static constexpr wl_seat_listener seat{.capabilities = capabilities, .name = nullptr};
};

LayerIndicator::LayerIndicator(WaylandDisplay& display)
    : display_(display)
    , offers_(display.offered.connect(
          [this](auto number, auto protocol, auto version) { take(number, protocol, version); }))
    , withdrawals_(display.withdrawn.connect([this](auto number) { outputs_.erase(number); }))
    , start_(display.ready.connect([this] {
        if (!shell_) logLine("the indicator cannot be shown: the compositor has no wlr-layer-shell");
        if (isShown_) create();
    })) {}

LayerIndicator::~LayerIndicator() {
    destroy();
    if (shell_) zwlr_layer_shell_v1_destroy(shell_);
    display_.flush();
}

void LayerIndicator::take(std::uint32_t number, std::string_view protocol, std::uint32_t version) {
    if (protocol == wl_compositor_interface.name) {
        compositor_.reset(display_.bind<wl_compositor>(number, wl_compositor_interface, version, 4));
    } else if (protocol == wl_shm_interface.name) {
        memory_.reset(display_.bind<wl_shm>(number, wl_shm_interface, version, 1));
    } else if (protocol == wl_seat_interface.name && !seat_) {
        seat_.reset(display_.bind<wl_seat>(number, wl_seat_interface, version, 1));
        wl_seat_add_listener(seat_.get(), &Listeners::seat, this);
    } else if (protocol == zwlr_layer_shell_v1_interface.name) {
        shell_ = display_.bind<zwlr_layer_shell_v1>(number, zwlr_layer_shell_v1_interface, version, 3);
    } else if (protocol == wl_output_interface.name && version >= namedOutputs) {
        auto& output = outputs_[number] = std::make_unique<Output>();
        output->native.reset(display_.bind<wl_output>(number, wl_output_interface, version, namedOutputs));
        wl_output_add_listener(output->native.get(), &Listeners::output, output.get());
    }
}

double LayerIndicator::scale() const {
    return std::ceil(qGuiApp->devicePixelRatio());
}

void LayerIndicator::show(const QImage& picture) {
    picture_ = picture;
    isShown_ = true;
    if (!surface_)
        create();
    else if (isConfigured_)
        paint();
    display_.flush();
}

void LayerIndicator::hide() {
    isShown_ = false;
    destroy();
    display_.flush();
}

void LayerIndicator::moveTo(Point bottomLeft) {
    const auto* primary = QGuiApplication::primaryScreen();
    if (!primary) return;
    const auto frame = primary->geometry();
    topLeft_ = {nearestPlace(frame.x() + bottomLeft.x),
                nearestPlace(frame.y() + frame.height() - bottomLeft.y - indicatorSize)};
    grip_.reset();
    place();
}

/// The one with its place, or the nearest.
const QScreen* LayerIndicator::screen() const {
    const QPoint centre = topLeft_ + QPoint(indicatorSize, indicatorSize) / 2;
    const auto screens = QGuiApplication::screens();
    const auto distance = [&](const QScreen* each) {
        const auto frame = each->geometry();
        const QPoint inside(std::clamp(centre.x(), frame.left(), frame.right()),
                            std::clamp(centre.y(), frame.top(), frame.bottom()));
        return (centre - inside).manhattanLength();
    };
    const auto nearest = std::ranges::min_element(screens, {}, distance);
    return nearest == screens.end() ? nullptr : *nearest;
}

/// Null leaves it to the compositor, as with one screen only.
wl_output* LayerIndicator::outputOf(const QScreen& screen) const {
    const auto name = screen.name().toStdString();
    const auto found =
        std::ranges::find_if(outputs_, [&](const auto& each) { return each.second->name == name; });
    return found == outputs_.end() ? nullptr : found->second->native.get();
}

void LayerIndicator::create() {
    const auto* on = screen();
    if (surface_ || !shell_ || !compositor_ || !memory_ || !on) return;
    screenName_ = on->name().toStdString();
    surface_.reset(wl_compositor_create_surface(compositor_.get()));
    layer_ = zwlr_layer_shell_v1_get_layer_surface(shell_, surface_.get(), outputOf(*on),
                                                   ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "quorvane-indicator");
    zwlr_layer_surface_v1_add_listener(layer_, &Listeners::layer, this);
    constexpr std::uint32_t focusNever = 0;
    constexpr std::int32_t besidesPanels = -1; // Where it is put, and not where panels leave room.
    zwlr_layer_surface_v1_set_keyboard_interactivity(layer_, focusNever);
    zwlr_layer_surface_v1_set_exclusive_zone(layer_, besidesPanels);
    zwlr_layer_surface_v1_set_anchor(layer_,
                                     ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    zwlr_layer_surface_v1_set_size(layer_, indicatorSize, indicatorSize);
    place();
}

void LayerIndicator::destroy() {
    grip_.reset();
    isConfigured_ = false;
    if (layer_) zwlr_layer_surface_v1_destroy(std::exchange(layer_, nullptr));
    surface_.reset();
    buffer_.reset();
}

void LayerIndicator::configured(std::uint32_t serial) {
    zwlr_layer_surface_v1_ack_configure(layer_, serial);
    const bool isFirst = !std::exchange(isConfigured_, true);
    if (isFirst) paint();
}

void LayerIndicator::paint() {
    auto buffer = pictureBuffer(memory_.get(), picture_);
    if (!buffer) return logLine("the indicator cannot be drawn: no memory to be shared");
    wl_surface_attach(surface_.get(), buffer.get(), 0, 0);
    wl_surface_set_buffer_scale(surface_.get(), std::max(1, picture_.width() / indicatorSize));
    wl_surface_damage(surface_.get(), 0, 0, indicatorSize, indicatorSize);
    wl_surface_commit(surface_.get());
    buffer_ = std::move(buffer);
}

void LayerIndicator::place() {
    if (!surface_) return;
    const auto* on = screen();
    if (!on) return;
    if (on->name().toStdString() != screenName_) { // A surface stays on its screen.
        destroy();
        return create();
    }
    const auto margin = topLeft_ - on->geometry().topLeft();
    zwlr_layer_surface_v1_set_margin(layer_, margin.y(), 0, 0, margin.x());
    wl_surface_commit(surface_.get());
    display_.flush();
}

void LayerIndicator::drag(QPointF pointer) {
    pointerAt_ = pointer;
    if (!grip_) return;
    topLeft_ += (pointer - *grip_).toPoint();
    place();
}

} // namespace quorvane
