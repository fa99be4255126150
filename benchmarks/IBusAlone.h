#pragma once

namespace quorvane {

/// Prints what IBus takes to select an engine when its only client asks for nothing else, that many times
/// each: what no other program can be faster than.
void measureIBusAlone(int count);

} // namespace quorvane
