#pragma once

#include <functional>
#include <list>
#include <memory>
#include <utility>

#include "platform/Subscription.h"

namespace quorvane {

/// A list of handlers, called in the order of their registration. Handlers may connect and disconnect
/// others, or themselves, while the signal is emitted: one connected meanwhile is first called by the next
/// emission, one disconnected meanwhile is called no more.
template <class... Arguments>
class Signal {
public:
    using Handler = std::function<void(Arguments...)>;

    Subscription connect(Handler handler) {
        auto slot = std::make_shared<Slot>(Slot{std::move(handler), true});
        slots_->push_back(slot);
        return Subscription([slots = std::weak_ptr(slots_), slot] {
            slot->connected = false;
            if (auto list = slots.lock()) list->remove(slot);
        });
    }

    void emit(Arguments... arguments) const {
        const auto snapshot = *slots_;
        for (const auto& slot : snapshot) {
            if (slot->connected) slot->handler(arguments...);
        }
    }

private:
    struct Slot {
        Handler handler;
        bool connected;
    };
    using Slots = std::list<std::shared_ptr<Slot>>;

    std::shared_ptr<Slots> slots_ = std::make_shared<Slots>();
};

} // namespace quorvane
