// Splitting a run of bands into passes: evenly, at most kMaxRegisters
// registers per pass, each pass with the fewest registers that hold its bands.
#pragma once

#include <cstdint>
#include <type_traits>

namespace band_cascade {

// Calls run(std::integral_constant<int32_t, R>{}) for the smallest R up to
// kMaxRegisters whose registers hold `count` bands.
template <class Lanes, int32_t kMaxRegisters, int32_t kRegisters = 1, typename Run>
inline void withRegistersFor(int32_t count, Run&& run) {
    if constexpr (kRegisters < kMaxRegisters) {
        if (count > kRegisters * Lanes::kBands)
            return withRegistersFor<Lanes, kMaxRegisters, kRegisters + 1>(count, run);
    }
    run(std::integral_constant<int32_t, kRegisters>{});
}

// Calls runPass(first, count) for consecutive slices of the `count` bands,
// as few passes as the registers allow, their sizes differing by one at most.
template <class Lanes, int32_t kMaxRegisters, typename RunPass>
inline void inEvenPasses(int32_t count, RunPass&& runPass) {
    constexpr int32_t kMaxBands = kMaxRegisters * Lanes::kBands;
    int32_t passes = (count + kMaxBands - 1) / kMaxBands;
    for (int32_t first = 0; passes > 0; --passes) {
        int32_t take = (count - first + passes - 1) / passes;
        runPass(first, take);
        first += take;
    }
}

}  // namespace band_cascade
