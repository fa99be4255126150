#pragma once

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <utility>

#include "platform/HotKeys.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

/// A keyboard whose keys are pressed by call.
class SimulatedHotKeys : public HotKeys {
public:
    explicit SimulatedHotKeys(Journal& journal) : journal_(journal) {}

    std::optional<Subscription> registerHotKey(const KeyCombination& combination,
                                               std::function<void()> pressed) override;

    /// The key goes down with these modifiers. False when the combination is nobody's.
    bool press(const KeyCombination& combination);

    /// Another program takes the combination.
    void takeFromOutside(const KeyCombination& combination) { entries_->push_back({combination, {}}); }

    /// Another program gives the combination back, and the desktop tells of it.
    void giveBackFromOutside(const KeyCombination& combination) {
        if (const auto entry = find(combination); entry != entries_->end() && !entry->pressed)
            entries_->erase(entry);
        changed.emit();
    }

private:
    struct Entry {
        KeyCombination combination;
        std::function<void()> pressed; ///< Empty: another program's.
    };
    using Entries = std::list<Entry>;
    Entries::iterator find(const KeyCombination& combination);

    Journal& journal_;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>(); ///< Subscriptions may outlive this.
};

} // namespace quorvane
