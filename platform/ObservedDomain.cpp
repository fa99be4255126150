#include "platform/ObservedDomain.h"

#include <utility>

namespace quorvane {

ObservedDomain::ObservedDomain(std::unique_ptr<RawDomain> raw, OnMainThread onMainThread)
    : raw_(std::move(raw)) {
    raw_->written = [this, exists = std::weak_ptr(exists_),
                     onMainThread = std::move(onMainThread)](std::string_view key) {
        onMainThread([this, exists, changed = std::string(key)] {
            if (!exists.expired()) tellIfNew(changed);
        });
    };
}

void ObservedDomain::setObject(PropertyList value, std::string_view key) {
    if (!raw_->set(value, key)) return;
    const auto observed = told_.find(key);
    if (observed == told_.end()) return;
    observed->second = raw_->get(key); // as the system has it
    changed_.emit(observed->first);
}

Subscription ObservedDomain::whenWritten(std::function<void()> handler) {
    handler();
    return {};
}

Subscription ObservedDomain::addObserver(std::string_view key,
                                         std::function<void(std::string_view)> handler) {
    if (told_.try_emplace(std::string(key), raw_->get(key)).second) raw_->observe(key);
    return changed_.connect([observed = std::string(key), handler = std::move(handler)](auto changed) {
        if (changed == observed) handler(changed);
    });
}

/// What the system says may be old news: what counts is how the key reads now.
void ObservedDomain::tellIfNew(const std::string& key) {
    const auto observed = told_.find(key);
    if (observed == told_.end()) return;
    auto value = raw_->get(key);
    if (observed->second == value) return;
    observed->second = std::move(value);
    changed_.emit(observed->first);
}

} // namespace quorvane
