#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "platform/HotKeys.h"
#include "platform/macos/Apple.h"

namespace quorvane {

/// Hot keys of the Carbon Event Manager: positions on the keyboard, in every layout, with Caps Lock on or
/// off. They need no permission. Main thread only. A combination is refused when this program has it, or
/// another one has it exclusively; one that others only share fires in each of them.
class CarbonHotKeys : public HotKeys {
public:
    CarbonHotKeys();
    ~CarbonHotKeys() override;
    CarbonHotKeys(const CarbonHotKeys&) = delete;
    CarbonHotKeys& operator=(const CarbonHotKeys&) = delete;

    std::optional<Subscription> registerHotKey(const KeyCombination& combination,
                                               std::function<void()> pressed) override;

    /// Until all that it has returned has ended, the combinations are taken back: they reach other programs
    /// and controls that record them. Those registered meanwhile take effect then.
    Subscription suspend();

private:
    struct HotKey {
        UInt32 keyCode;
        UInt32 modifiers;
        std::function<void()> pressed;
        EventHotKeyRef reference; ///< Null while suspended, and when it was taken by somebody meanwhile.
    };

    /// Null when somebody has it.
    static EventHotKeyRef take(UInt32 number, const HotKey& key);
    static void giveBack(HotKey& key);
    void resume();
    static OSStatus handle(EventHandlerCallRef next, EventRef event, void* hotKeys) noexcept;
    OSStatus press(EventRef event) const;

    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::map<UInt32, HotKey> keys_; ///< By the number in their id.
    UInt32 lastNumber_ = 0;
    int suspensions_ = 0;
    EventHandlerRef handler_ = nullptr; ///< Null when it could not be installed.
};

} // namespace quorvane
