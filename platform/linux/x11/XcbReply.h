#pragma once

#include <cstdlib>
#include <memory>

namespace quorvane {

struct FreeDeleter {
    void operator()(void* memory) const noexcept { std::free(memory); }
};

/// Owns what xcb hands out by `malloc`: replies, errors and events. Null when the server refused or is gone.
template <class T>
using XcbReply = std::unique_ptr<T, FreeDeleter>;

} // namespace quorvane
