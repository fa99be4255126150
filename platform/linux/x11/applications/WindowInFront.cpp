#include "platform/linux/x11/applications/WindowInFront.h"

#include <utility>

namespace quorvane {

// None is announced for a moment at nearly every switch (openbox), so it means nothing.
bool WindowInFront::announced(Window window) {
    if (window == none) return false;
    const bool isFocusTold = isManaged(focused_);
    const auto& announced = managed_[window];
    if (!isFocusTold || window == focused_) {
        coming_ = none;
        return moveTo(window);
    }
    if (!announced.tellsFocus) coming_ = window;
    return false;
}

bool WindowInFront::focused(Window window) {
    focused_ = window;
    const auto managed = managed_.find(window);
    if (managed == managed_.end()) return false;
    managed->second.tellsFocus = true;
    coming_ = none;
    return moveTo(window);
}

bool WindowInFront::unfocused(Window window) {
    if (const auto managed = managed_.find(window); managed != managed_.end())
        managed->second.tellsFocus = true;
    if (window != focused_) return false;
    focused_ = none;
    return coming_ != none && moveTo(std::exchange(coming_, none));
}

bool WindowInFront::listed(Window window) {
    const bool hasFocus = window == focused_;
    if (managed_.try_emplace(window, Managed{hasFocus}).second && hasFocus) return focused(window);
    return false;
}

bool WindowInFront::closed(Window window) {
    if (window == coming_) coming_ = none;
    const bool hasMoved = unfocused(window);
    managed_.erase(window);
    return (window == front_ && moveTo(none)) || hasMoved;
}

bool WindowInFront::moveTo(Window window) {
    return std::exchange(front_, window) != window;
}

} // namespace quorvane
