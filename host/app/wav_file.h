// WAV files read and written block by block through libsndfile, as stereo
// float64 (mono input is read as two equal channels).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <sndfile.h>

#include "host/vst/stereo_buffer.h"

class WavReader {
public:
    // Throws CommandFailure when the file is missing or unreadable, is not a
    // WAV file, or has more than two channels.
    explicit WavReader(const std::string& path);
    ~WavReader();
    WavReader(const WavReader&) = delete;
    WavReader& operator=(const WavReader&) = delete;

    int sampleRate() const { return info_.samplerate; }
    int channels() const { return info_.channels; }
    int64_t frames() const { return info_.frames; }
    int format() const { return info_.format; }

    // Reads up to `frames` frames into `block` (resized to what was read).
    size_t read(StereoBuffer& block, size_t frames);

private:
    SF_INFO info_{};
    SNDFILE* file_ = nullptr;
    std::vector<double> interleaved_;
};

class WavWriter {
public:
    // A stereo file in the sample format of `format` (a libsndfile format
    // code); throws CommandFailure when it cannot be created.
    WavWriter(const std::string& path, int format, int sampleRate);
    ~WavWriter();
    WavWriter(const WavWriter&) = delete;
    WavWriter& operator=(const WavWriter&) = delete;

    // Throws CommandFailure when the file cannot take the samples.
    void write(const StereoBuffer& block);
    // Completes the file; throws CommandFailure when that fails.
    void finish();

private:
    std::string path_;
    SNDFILE* file_ = nullptr;
    std::vector<double> interleaved_;
};
