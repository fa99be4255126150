#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include <QPoint>
#include <QScreen>

#include "platform/linux/qt/IndicatorSurface.h"
#include "platform/linux/wayland/WaylandDisplay.h"

struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;

namespace quorvane {

/// The indicator as a surface above all windows (wlr-layer-shell), which belongs to one screen and is placed
/// by its distance from that screen's top-left corner.
class LayerIndicator : public IndicatorSurface {
public:
    /// Needs a QGuiApplication. Made before the display tells what there is, and must not outlive it.
    explicit LayerIndicator(WaylandDisplay& display);
    ~LayerIndicator() override;
    LayerIndicator(const LayerIndicator&) = delete;
    LayerIndicator& operator=(const LayerIndicator&) = delete;

    double scale() const override;
    void show(const QImage& picture) override;
    void hide() override;
    void moveTo(Point bottomLeft) override;
    void raise() override {} ///< It is above all windows wherever they go.

private:
    struct Listeners;
    struct Output;

    void take(std::uint32_t number, std::string_view protocol, std::uint32_t version);
    void create();
    void destroy();
    void configured(std::uint32_t serial);
    void paint();
    void place();
    void drag(QPointF pointer);
    const QScreen* screen() const;
    wl_output* outputOf(const QScreen& screen) const;

    WaylandDisplay& display_;
    WaylandRef<wl_compositor> compositor_;
    WaylandRef<wl_shm> memory_;
    WaylandRef<wl_seat> seat_;
    WaylandRef<wl_pointer> pointer_;
    zwlr_layer_shell_v1* shell_ = nullptr;
    std::map<std::uint32_t, std::unique_ptr<Output>> outputs_; ///< By the compositor's number.

    QImage picture_;
    QPoint topLeft_; ///< In points, from the top-left of all screens together.
    bool isShown_ = false;

    WaylandRef<wl_surface> surface_; ///< While it is shown.
    zwlr_layer_surface_v1* layer_ = nullptr;
    WaylandRef<wl_buffer> buffer_;
    std::string screenName_; ///< Of the screen that the surface belongs to.
    bool isConfigured_ = false;
    QPointF pointerAt_;           ///< On the surface.
    std::optional<QPointF> grip_; ///< Where on the surface a drag has got hold of it.

    Subscription offers_;
    Subscription withdrawals_;
    Subscription start_;
};

} // namespace quorvane
