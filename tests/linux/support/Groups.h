#pragma once

namespace quorvane {

// The groups of a session's layouts.
constexpr unsigned us = 0, ru = 1, de = 2;

} // namespace quorvane
