// Sound files read and written block by block through libsndfile: any
// container it knows (WAV, FLAC, AIFF, ...), mono or stereo.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <sndfile.h>

#include "host/app/sample_quantizer.h"
#include "host/vst/stereo_buffer.h"

class SoundReader {
public:
    // Throws CommandFailure when the file is missing or unreadable, is no
    // sound file, is cut short, has more than two channels or a sample rate
    // of 0 or beyond 768 kHz.
    explicit SoundReader(const std::string& path);
    ~SoundReader();
    SoundReader(const SoundReader&) = delete;
    SoundReader& operator=(const SoundReader&) = delete;

    int sampleRate() const { return info_.samplerate; }
    int channels() const { return info_.channels; }
    int64_t frames() const { return info_.frames; }
    // False for streams that do not tell their length (frames() is then huge).
    bool lengthKnown() const { return info_.frames != SF_COUNT_MAX; }
    int format() const { return info_.format; }

    // Reads up to `frames` frames into `block` (resized to what was read);
    // a mono file fills both channels alike. Throws CommandFailure when the
    // file ends before the length its header gave.
    size_t read(StereoBuffer& block, size_t frames);

private:
    void requireUsable();

    std::string path_;
    SF_INFO info_{};
    SNDFILE* file_ = nullptr;
    int64_t framesRead_ = 0;
    std::vector<double> interleaved_;
};

struct SoundFormat {
    int format;  // libsndfile container | subtype
    int channels;
    int sampleRate;
};

class SoundWriter {
public:
    // Throws CommandFailure when the file cannot be created.
    SoundWriter(const std::string& path, const SoundFormat& format, bool dither);
    ~SoundWriter();
    SoundWriter(const SoundWriter&) = delete;
    SoundWriter& operator=(const SoundWriter&) = delete;

    // Writes the first `channels` channels of `block`; throws CommandFailure
    // when the file cannot take the samples.
    void write(const StereoBuffer& block);
    // Completes the file; throws CommandFailure when that fails.
    void finish();

    // Samples beyond full scale, for formats that cannot hold them.
    const ClippingCount& clipping() const { return clipping_; }

private:
    void writeIntegers(const StereoBuffer& block);
    void writeReals(const StereoBuffer& block);

    std::string path_;
    SoundFormat format_;
    SNDFILE* file_ = nullptr;
    std::vector<double> reals_;
    std::vector<int32_t> integers_;
    std::optional<SampleQuantizer> quantizer_;
    ClippingCount clipping_;
    bool canExceedFullScale_;
};

// The container that a file name's extension asks for (case ignored);
// throws UsageError for an extension libsndfile cannot write.
int containerForPath(const std::string& path);

// The sample format to write: `wanted` when given (UsageError when the
// container cannot hold it), else the input's subtype or the nearest the
// container can hold (with a note on standard error).
int chooseSubtype(int container, int inputSubtype, const std::optional<int>& wanted);
