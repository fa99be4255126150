// Every seed, every seed that stops too early, and every seed with one wrong byte.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/FuzzTargets.h"

namespace quorvane {
namespace {

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Seeds, AreReadWholeCutOffAndDamaged) {
    for (const auto& target : fuzzTargets) {
        SCOPED_TRACE(target.name);
        int seeds = 0;
        for (const auto& file :
             std::filesystem::directory_iterator(std::filesystem::path(QUORVANE_SEEDS) / target.name)) {
            const auto seed = contentsOf(file);
            EXPECT_FALSE(seed.empty()) << file.path();
            ++seeds;
            target.read(seed);
            for (std::size_t at = 0; at < seed.size(); ++at) {
                target.read(std::string_view(seed).substr(0, at));
                if (file.path().filename() == "bomb.binary") continue; // each try would count to the end
                for (const char wrong : {'\0', '\x7f', '\xff', '<', static_cast<char>(seed[at] + 1)}) {
                    auto damaged = seed;
                    damaged[at] = wrong;
                    target.read(damaged);
                }
            }
        }
        EXPECT_GE(seeds, 3);
    }
}

} // namespace
} // namespace quorvane
