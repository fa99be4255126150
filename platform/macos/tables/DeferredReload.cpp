#include "platform/macos/tables/DeferredReload.h"

#include <utility>

namespace quorvane {

DeferredReload::DeferredReload(Table table) : state_(std::make_shared<State>(State{std::move(table)})) {}

void DeferredReload::request() {
    state_->isDue = true;
    reloadIfDue(*state_);
}

Subscription DeferredReload::use() {
    ++state_->uses;
    return Subscription([weak = std::weak_ptr(state_)] {
        const auto state = weak.lock();
        if (!state) return;
        --state->uses;
        reloadLater(state);
    });
}

void DeferredReload::editingEnded() {
    reloadLater(state_);
}

void DeferredReload::reloadIfDue(State& state) {
    if (state.uses > 0 || !state.isDue || state.table.isBeingEdited()) return;
    state.isDue = false;
    state.table.reload();
}

/// Not at once: the widget is still busy with its end, and its action may come after that.
void DeferredReload::reloadLater(const std::shared_ptr<State>& state) {
    if (!state->isDue) return;
    state->table.callLater([weak = std::weak_ptr(state)] {
        if (const auto alive = weak.lock()) reloadIfDue(*alive);
    });
}

} // namespace quorvane
