// The fuzzer's side: which target it drives is in the environment.

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/FuzzTargets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const char* wanted = std::getenv("QUORVANE_FUZZ_TARGET");
    for (const auto& target : quorvane::fuzzTargets) {
        if (!wanted || wanted != std::string_view(target.name)) continue;
        target.read({reinterpret_cast<const char*>(data), size});
        return 0;
    }
    std::fputs("QUORVANE_FUZZ_TARGET is none of the folders in tests/fuzz/seeds\n", stderr);
    std::exit(2);
}
