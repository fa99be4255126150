#pragma once

#include <chrono>
#include <functional>

namespace quorvane {

/// Runs Qt's event loop until the condition holds; false when it does not within the limit. The condition
/// is looked at after every event, and often enough for what happens outside this process.
bool waitUntil(const std::function<bool()>& condition, std::chrono::seconds limit = std::chrono::seconds(10));

/// No hand gets from a key, or another window, to the next any sooner. A release that a program hands to IBus
/// after the next one has got the focus takes that one's text away, and a program of Qt that gets the focus
/// back in a tenth of a second does not tell Fcitx5 that it has it.
void pauseLikeAPerson();

} // namespace quorvane
