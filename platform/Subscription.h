#pragma once

#include <functional>
#include <utility>

namespace quorvane {

/// Owns one registration: destroying it ends the registration. An empty one does nothing.
/// A subscription may outlive what it was made on; ending it then has no effect.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            end();
            cancel_ = std::exchange(other.cancel_, nullptr);
        }
        return *this;
    }
    ~Subscription() { end(); }

    void end() {
        if (auto cancel = std::exchange(cancel_, nullptr)) cancel();
    }

private:
    std::function<void()> cancel_;
};

} // namespace quorvane
