// The windowing layer's clock in milliseconds: GetTickCount and every timer
// read it. By default it follows real time; a test switches to a manual clock
// that moves only when the test advances it, so timer behaviour is exact.
#pragma once

#include <cstdint>

namespace kobal_layer {

uint32_t hostClockNow();

// Switches to the manual clock, starting at `start` milliseconds.
void useTestClock(uint32_t start = 0);
// Moves the manual clock forward; due timers fire at the next pumpMessages().
void advanceTestClock(uint32_t milliseconds);
// Back to real time.
void useRealClock();

}  // namespace kobal_layer
