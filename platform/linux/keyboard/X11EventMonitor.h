#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/GlobalEventMonitor.h"
#include "platform/Signal.h"
#include "platform/linux/keyboard/ModifierKeys.h"
#include "platform/linux/x11/XConnection.h"

namespace quorvane {

/// Modifier keys and the left mouse button, by XInput2 raw events: they come whoever has the focus, and also
/// while a menu has grabbed the keyboard. Only the kinds of events that somebody observes are selected, so
/// that typing wakes nobody who waits for the mouse.
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
    /// Those who observe one type of event.
    struct Observers {
        EventType type;
        std::uint32_t rawEvents; ///< What must be selected for it.
        int count = 0;
        Signal<const Event&> signal;
    };

    Subscription observe(Observers& observers, std::function<void(const Event&)> handler);
    bool isObserved(EventType type) const;
    void selectEvents();
    void startWatchingKeys();
    void handle(const xcb_generic_event_t& event);
    void handleRaw(const xcb_ge_generic_event_t& event);
    void handleKey(std::uint32_t keycode, bool isDown, std::uint32_t time);
    bool isPointerOnOwnWindow() const;
    void emit(EventType type, std::uint32_t time);

    XConnection& x_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::array<Observers, 2> observers_;
    std::optional<std::uint8_t> inputOpcode_; ///< None before it is known.
    ModifierKeys keys_;
    bool isOwnClick_ = false; ///< The left button has gone down on a window of this connection.
    std::uint64_t flags_ = ModifierFlag::nonCoalesced; ///< As last told.
    Subscription events_;
};

} // namespace quorvane
