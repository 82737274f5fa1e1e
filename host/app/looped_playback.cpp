#include "host/app/looped_playback.h"

#include <chrono>
#include <cmath>

#include "host/app/test_signal.h"

namespace {

constexpr size_t kBlockFrames = 512;

}  // namespace

LoopedPlayback::LoopedPlayback(EffectSession& session, StereoBuffer recording, double sampleRate,
                               std::unique_ptr<SoundOutput> sound)
    : session_(session),
      recording_(std::move(recording)),
      sampleRate_(sampleRate),
      sound_(std::move(sound)),
      thread_([this] { run(); }) {}

LoopedPlayback::~LoopedPlayback() { stop(); }

void LoopedPlayback::stop() {
    stopping_ = true;
    if (thread_.joinable()) thread_.join();
}

// Copies the next frames of the recording, wrapping at its end.
size_t LoopedPlayback::fillNextBlock(StereoBuffer& block) {
    for (size_t frame = 0; frame < kBlockFrames; ++frame) {
        block.left[frame] = recording_.left[position_];
        block.right[frame] = recording_.right[position_];
        position_ = (position_ + 1) % recording_.frames();
    }
    return kBlockFrames;
}

void LoopedPlayback::run() {
    StereoBuffer input(kBlockFrames), output(kBlockFrames);
    const auto blockDuration = std::chrono::duration_cast<std::chrono::steady_clock::duration>(
        std::chrono::duration<double>(static_cast<double>(kBlockFrames) / sampleRate_));
    auto due = std::chrono::steady_clock::now();
    while (!stopping_ && recording_.frames() > 0) {
        size_t frames = fillNextBlock(input);
        auto inputs = input.channels();
        auto outputs = output.channels();
        session_.processFrames(inputs.data(), outputs.data(), static_cast<int32_t>(frames));
        if (sound_) {
            sound_->write(output, frames);
        } else {
            due += blockDuration;
            std::this_thread::sleep_until(due);
        }
    }
}

StereoBuffer makeLoopSignal(double sampleRate) {
    const size_t frames = static_cast<size_t>(std::lround(sampleRate));
    StereoBuffer signal(frames);
    for (double frequency : {110.0, 440.0, 1760.0, 7040.0}) {
        StereoBuffer tone = makeTone(frequency, 0.08, sampleRate, frames);
        for (size_t frame = 0; frame < frames; ++frame) {
            signal.left[frame] += tone.left[frame];
            signal.right[frame] += tone.right[frame];
        }
    }
    return signal;
}
