// Keeps denormals, tiny values and non-finite values out of a filter's
// feedback path without touching the processor's floating-point mode.
#pragma once

#include <bit>
#include <cstdint>

// Biased exponent field, plus one, below which a sample is flushed: every
// magnitude under 2^-54; infinities and NaNs (field 2047) wrap round to 0.
constexpr uint64_t kFlushExponentLimit = 970;
constexpr uint64_t kExponentFieldMask = 0x7FF;

inline double flushTiny(double sample) {
    uint64_t bits = std::bit_cast<uint64_t>(sample);
    return (((bits >> 52) + 1) & kExponentFieldMask) < kFlushExponentLimit ? 0.0 : sample;
}
