// A percentage on standard error while a long file is processed, when
// standard error is a terminal; short files (ten seconds of audio or less)
// show none.
#pragma once

#include <cstdint>

class ProgressMeter {
public:
    ProgressMeter(int64_t totalFrames, int sampleRate);
    void update(int64_t framesDone);
    void finish();

private:
    int64_t totalFrames_;
    bool shown_;
    int lastPercent_ = -1;
};
