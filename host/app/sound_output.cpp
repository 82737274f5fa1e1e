#include "host/app/sound_output.h"

#include <alsa/asoundlib.h>

namespace {

constexpr unsigned int kLatencyUs = 100000;

// The library's own complaints (a machine without a sound card) would
// only repeat the one line the program prints.
void quietErrors(const char*, int, const char*, int, const char*, ...) {}

}  // namespace

std::unique_ptr<SoundOutput> SoundOutput::openDefault(int sampleRate, std::string& reason) {
    snd_lib_error_set_handler(quietErrors);
    snd_pcm_t* device = nullptr;
    int result = snd_pcm_open(&device, "default", SND_PCM_STREAM_PLAYBACK, 0);
    if (result == 0)
        result = snd_pcm_set_params(device, SND_PCM_FORMAT_FLOAT, SND_PCM_ACCESS_RW_INTERLEAVED, 2,
                                    static_cast<unsigned>(sampleRate), 1, kLatencyUs);
    if (result < 0) {
        reason = snd_strerror(result);
        if (device) snd_pcm_close(device);
        return nullptr;
    }
    return std::unique_ptr<SoundOutput>(new SoundOutput(device));
}

SoundOutput::~SoundOutput() {
    snd_pcm_drop(device_);
    snd_pcm_close(device_);
}

void SoundOutput::write(const StereoBuffer& block, size_t frames) {
    interleaved_.resize(frames * 2);
    for (size_t frame = 0; frame < frames; ++frame) {
        interleaved_[2 * frame] = static_cast<float>(block.left[frame]);
        interleaved_[2 * frame + 1] = static_cast<float>(block.right[frame]);
    }
    const float* next = interleaved_.data();
    snd_pcm_uframes_t left = frames;
    while (left > 0) {
        snd_pcm_sframes_t written = snd_pcm_writei(device_, next, left);
        if (written < 0) {
            if (snd_pcm_recover(device_, static_cast<int>(written), 1) < 0) return;
            continue;
        }
        next += 2 * written;
        left -= static_cast<snd_pcm_uframes_t>(written);
    }
}
