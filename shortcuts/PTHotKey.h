#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/PropertyList.h"

namespace quorvane {

class PTHotKey;
using PTHotKeyRef = std::shared_ptr<const PTHotKey>;

/// A key combination with a name, and what happens when it is pressed.
class PTHotKey {
public:
    using Action = std::function<void(const PTHotKey&)>;

    /// `keyCombo` is the record as the recorder made it; see `InputShortcut`.
    static PTHotKeyRef hotKeyWithIdentifier(std::string identifier, PropertyList keyCombo, Action action) {
        return std::make_shared<const PTHotKey>(
            PTHotKey(std::move(identifier), std::move(keyCombo), std::move(action)));
    }

    /// The id of the input source that the hot key selects.
    const std::string& identifier() const { return identifier_; }
    const PropertyList& keyCombo() const { return keyCombo_; }

    void perform() const { action_(*this); }

private:
    PTHotKey(std::string identifier, PropertyList keyCombo, Action action)
        : identifier_(std::move(identifier))
        , keyCombo_(std::move(keyCombo))
        , action_(std::move(action)) {}

    std::string identifier_;
    PropertyList keyCombo_;
    Action action_;
};

} // namespace quorvane
