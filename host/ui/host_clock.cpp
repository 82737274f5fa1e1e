#include "host/ui/host_clock.h"

#include <atomic>
#include <chrono>

namespace kobal_layer {
namespace {
// Read from the audio thread (spectrum stamps) as well, hence atomics.
std::atomic<bool> testClockActive{false};
std::atomic<uint32_t> testClockValue{0};

uint32_t realMilliseconds() {
    using namespace std::chrono;
    auto sinceStart = steady_clock::now().time_since_epoch();
    return static_cast<uint32_t>(duration_cast<milliseconds>(sinceStart).count());
}
}  // namespace

uint32_t hostClockNow() {
    return testClockActive.load() ? testClockValue.load() : realMilliseconds();
}

void useTestClock(uint32_t start) {
    testClockValue.store(start);
    testClockActive.store(true);
}

void advanceTestClock(uint32_t milliseconds) { testClockValue.fetch_add(milliseconds); }

void useRealClock() { testClockActive.store(false); }

}  // namespace kobal_layer
