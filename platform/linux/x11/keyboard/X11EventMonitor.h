#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "platform/GlobalEventMonitor.h"
#include "platform/Signal.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/keyboard/XkbModifiers.h"

namespace quorvane {

/// Modifiers, as the state of the keyboard, and the left mouse button, by XInput2 raw events: both come
/// whoever has the focus, and also while a menu has grabbed keyboard and mouse. Nothing is selected that
/// nobody observes, and no other keys ever are.
///
/// Clicks on windows of this process are left out: those that begin on a window of this connection, and those
/// that end on any other one. The question for the latter costs a few round trips a click.
class X11EventMonitor : public GlobalEventMonitor {
public:
    explicit X11EventMonitor(XConnection& x);
    X11EventMonitor(const X11EventMonitor&) = delete;
    X11EventMonitor& operator=(const X11EventMonitor&) = delete;

    Subscription addGlobalMonitor(EventMask mask, std::function<void(const Event&)> handler) override;

private:
    using Observers = Signal<const Event&>;

    struct Observed {
        EventType type;
        void (X11EventMonitor::*select)(bool isOn);
        int count = 0;
        Observers observers;
    };

    Subscription observe(Observed& observed, std::function<void(const Event&)> handler);
    void selectButtons(bool isOn);
    void selectModifiers(bool isOn);
    void handle(const xcb_generic_event_t& event);
    void handleRaw(const xcb_ge_generic_event_t& event);
    bool isPointerOnOwnWindow() const;
    void emit(EventType type, std::uint32_t time);

    XConnection& x_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::array<Observed, 2> observed_;
    std::optional<std::uint8_t> inputOpcode_; ///< None before it is known.
    XkbModifiers modifiers_;
    bool isOwnClick_ = false; ///< The left button has gone down on a window of this connection.
    Subscription modifierChanges_;
    Subscription events_;
};

} // namespace quorvane
