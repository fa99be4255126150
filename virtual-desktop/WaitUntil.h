#pragma once

#include <chrono>
#include <functional>

namespace quorvane {

/// Runs Qt's event loop until the condition holds; false when it does not within the limit. The condition
/// is looked at after every event, and often enough for what happens outside this process.
bool waitUntil(const std::function<bool()>& condition, std::chrono::seconds limit = std::chrono::seconds(10));

} // namespace quorvane
