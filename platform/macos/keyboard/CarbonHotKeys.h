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

private:
    struct HotKey {
        EventHotKeyRef reference;
        std::function<void()> pressed;
    };

    static OSStatus handle(EventHandlerCallRef next, EventRef event, void* hotKeys) noexcept;
    OSStatus press(EventRef event) const;

    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::map<UInt32, HotKey> keys_; ///< By the number in their id.
    UInt32 lastNumber_ = 0;
    EventHandlerRef handler_ = nullptr; ///< Null when it could not be installed.
};

} // namespace quorvane
