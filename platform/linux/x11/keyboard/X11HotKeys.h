#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <vector>

#include "platform/HotKeys.h"
#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/keyboard/KeyboardMap.h"

namespace quorvane {

/// Hot keys by passive grabs on the root window. They are grabs of positions, so that no layout moves them,
/// and they follow the modifiers when the keyboard's map moves those. While another program has grabbed the
/// whole keyboard, as for a menu, no hot key is seen.
class X11HotKeys : public HotKeys {
public:
    explicit X11HotKeys(XConnection& x);
    ~X11HotKeys() override;
    X11HotKeys(const X11HotKeys&) = delete;
    X11HotKeys& operator=(const X11HotKeys&) = delete;

    std::optional<Subscription> registerHotKey(const KeyCombination& combination,
                                               std::function<void()> pressed) override;

private:
    struct HotKey {
        std::uint8_t keycode;
        std::uint64_t modifierFlags; ///< Those that count.
        std::function<void()> pressed;
    };

    void start();
    std::vector<std::uint16_t> statesOf(const HotKey& key) const;
    bool grab(const HotKey& key);
    void ungrab(const HotKey& key);
    void handle(const xcb_generic_event_t& event);
    void handlePress(std::uint8_t keycode, std::uint16_t state);
    void handleRelease(std::uint8_t keycode);
    void followModifiers();

    XConnection& x_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::list<HotKey> keys_;
    bool isStarted_ = false;         ///< It listens to the keyboard's map since the first was asked for.
    ModifierBits bits_;              ///< What the grabs are made of.
    std::vector<std::uint8_t> held_; ///< Since a hot key was pressed, which is the first.
    Subscription events_;
};

} // namespace quorvane
