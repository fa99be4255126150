#pragma once

#include <list>

#include "platform/HotKeys.h"

namespace quorvane {

/// A keyboard whose keys are pressed by call.
class SimulatedHotKeys : public HotKeys {
public:
    std::optional<Subscription> registerHotKey(const KeyCombination& combination,
                                               std::function<void()> pressed) override;

    /// The key goes down with these modifiers. False when the combination is nobody's.
    bool press(const KeyCombination& combination);

    /// Another program takes the combination.
    void takeFromOutside(const KeyCombination& combination) { entries_.push_back({combination, {}}); }

    std::size_t count() const { return entries_.size(); }

private:
    struct Entry {
        KeyCombination combination;
        std::function<void()> pressed; ///< Empty: another program's.
    };
    std::list<Entry>::iterator find(const KeyCombination& combination);

    std::list<Entry> entries_;
};

} // namespace quorvane
