#pragma once

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <vector>

#include "platform/HotKeys.h"

namespace quorvane {

/// What a compositor does about hot keys. Its answers come later.
class HotKeyBindings {
public:
    virtual ~HotKeyBindings() = default;

    /// Makes the combination ours. `number` tells it apart, from 0. The answer comes from the event loop, or
    /// never; not granted: somebody else has it, or there is no such key.
    virtual void bind(unsigned number, const KeyCombination& combination,
                      std::function<void(bool isGranted)> answered) = 0;

    virtual void unbind(unsigned number, const KeyCombination& combination) = 0;

    Signal<unsigned> pressed; ///< By its number; once a press.
    Signal<> changed;         ///< Nothing is bound any more, or others may have given theirs up.
};

/// Hot keys of a compositor that is asked for them: they are granted at once, and refused when the compositor
/// says so. One that was refused stays so until something has changed.
class AskedHotKeys : public HotKeys {
public:
    /// The bindings must outlive this object.
    explicit AskedHotKeys(HotKeyBindings& bindings);
    ~AskedHotKeys() override;
    AskedHotKeys(const AskedHotKeys&) = delete;
    AskedHotKeys& operator=(const AskedHotKeys&) = delete;

    std::optional<Subscription> registerHotKey(const KeyCombination& combination,
                                               std::function<void()> pressed) override;

private:
    struct HotKey {
        unsigned number;
        KeyCombination combination;
        std::function<void()> pressed;
    };

    void bind(const HotKey& key);
    void refused(unsigned number);
    void bindAnew();

    HotKeyBindings& bindings_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::list<HotKey> keys_;
    std::vector<KeyCombination> refused_;
    unsigned nextNumber_ = 0;
    Subscription presses_;
    Subscription changes_;
};

} // namespace quorvane
