#pragma once

#include <algorithm>
#include <cstdio>
#include <vector>

namespace quorvane {

/// Prints how long something took, in milliseconds. No line end follows.
inline void printPercentiles(std::vector<double> times) {
    std::ranges::sort(times);
    const auto percentile = [&](double share) {
        return times.empty() ? 0
                             : times[std::min(times.size() - 1, std::size_t(share * double(times.size())))];
    };
    std::printf("p50 %.2f ms, p99 %.2f ms, longest %.2f ms", percentile(0.5), percentile(0.99),
                percentile(1));
}

} // namespace quorvane
