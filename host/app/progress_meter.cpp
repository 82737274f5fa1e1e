#include "host/app/progress_meter.h"

#include <unistd.h>

#include <cstdio>

namespace {

constexpr int64_t kSecondsWorthShowing = 10;

}  // namespace

ProgressMeter::ProgressMeter(int64_t totalFrames, int sampleRate)
    : totalFrames_(totalFrames),
      shown_(isatty(STDERR_FILENO) &&
             totalFrames > kSecondsWorthShowing * static_cast<int64_t>(sampleRate)) {}

void ProgressMeter::update(int64_t framesDone) {
    if (!shown_ || totalFrames_ <= 0) return;
    int percent = static_cast<int>(framesDone * 100 / totalFrames_);
    if (percent == lastPercent_) return;
    lastPercent_ = percent;
    std::fprintf(stderr, "\rprocessing: %3d%%", percent);
    std::fflush(stderr);
}

void ProgressMeter::finish() {
    if (shown_ && lastPercent_ >= 0) std::fputc('\n', stderr);
}
