// A recording played through the effect in a loop, in real time, on an
// audio thread of its own: blocks go to processDoubleReplacing as a host's
// audio thread would send them, paced by the sound device when there is
// one and by the clock otherwise.
#pragma once

#include <atomic>
#include <memory>
#include <thread>

#include "host/app/sound_output.h"
#include "host/vst/effect_session.h"

class LoopedPlayback {
public:
    // Starts at once; `sound` may be null (silent playback).
    LoopedPlayback(EffectSession& session, StereoBuffer recording, double sampleRate,
                   std::unique_ptr<SoundOutput> sound);
    ~LoopedPlayback();  // stops
    LoopedPlayback(const LoopedPlayback&) = delete;
    LoopedPlayback& operator=(const LoopedPlayback&) = delete;

    void stop();

private:
    void run();
    size_t fillNextBlock(StereoBuffer& block);

    EffectSession& session_;
    StereoBuffer recording_;
    double sampleRate_;
    std::unique_ptr<SoundOutput> sound_;
    size_t position_ = 0;
    std::atomic<bool> stopping_{false};
    std::thread thread_;
};

// The built-in signal: four tones spread over the spectrum, one second
// long, so that it loops without a seam.
StereoBuffer makeLoopSignal(double sampleRate);
