// Sound to the default ALSA device, interleaved float32 stereo. Writing
// blocks until the device takes the samples, which paces the caller.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/vst/stereo_buffer.h"

struct _snd_pcm;

class SoundOutput {
public:
    // Null when there is no usable default device; `reason` then says why.
    static std::unique_ptr<SoundOutput> openDefault(int sampleRate, std::string& reason);
    ~SoundOutput();
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    // Plays the first `frames` frames; recovers from underruns by itself.
    void write(const StereoBuffer& block, size_t frames);

private:
    explicit SoundOutput(_snd_pcm* device) : device_(device) {}
    _snd_pcm* device_;
    std::vector<float> interleaved_;
};
