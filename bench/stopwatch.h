// Timing by the fastest of several trials, each measured in the processor
// time of the calling thread: time spent descheduled while other programs
// run does not count, and other load can only make a trial slower, so the
// minimum is the best estimate of the cost.
#pragma once

#include <time.h>

#include <cstdint>

inline double threadSeconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// Calls `work` `repeats` times per trial and returns the fastest trial's
// seconds per call.
template <typename Work>
double fastestSecondsPerCall(int32_t trials, int32_t repeats, Work&& work) {
    double best = 1e30;
    for (int32_t trial = 0; trial < trials; ++trial) {
        double start = threadSeconds();
        for (int32_t i = 0; i < repeats; ++i) work();
        double perCall = (threadSeconds() - start) / repeats;
        if (perCall < best) best = perCall;
    }
    return best;
}

// As above, but `prepare` runs before each call outside the timed part (new
// input for the next call, say).
template <typename Prepare, typename Work>
double fastestSecondsPerPreparedCall(int32_t trials, int32_t repeats, Prepare&& prepare,
                                     Work&& work) {
    double best = 1e30;
    for (int32_t trial = 0; trial < trials; ++trial) {
        double spent = 0;
        for (int32_t i = 0; i < repeats; ++i) {
            prepare();
            const double start = threadSeconds();
            work();
            spent += threadSeconds() - start;
        }
        if (spent / repeats < best) best = spent / repeats;
    }
    return best;
}
