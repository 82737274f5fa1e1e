#include "host/app/wav_file.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "host/app/program_error.h"

namespace {

bool isWavFormat(int format) {
    int major = format & SF_FORMAT_TYPEMASK;
    return major == SF_FORMAT_WAV || major == SF_FORMAT_WAVEX || major == SF_FORMAT_RF64;
}

}  // namespace

WavReader::WavReader(const std::string& path) {
    if (access(path.c_str(), R_OK) != 0)
        throw CommandFailure("cannot read " + path + ": " + std::strerror(errno));
    file_ = sf_open(path.c_str(), SFM_READ, &info_);
    if (!file_) throw CommandFailure(path + " is not a WAV file: " + sf_strerror(nullptr));
    if (!isWavFormat(info_.format)) {
        sf_close(file_);
        throw CommandFailure(path + " is not a WAV file");
    }
    if (info_.channels < 1 || info_.channels > 2) {
        sf_close(file_);
        throw CommandFailure(path + " has " + std::to_string(info_.channels) +
                             " channels; only mono and stereo files can be processed");
    }
}

WavReader::~WavReader() {
    if (file_) sf_close(file_);
}

size_t WavReader::read(StereoBuffer& block, size_t frames) {
    interleaved_.resize(frames * static_cast<size_t>(info_.channels));
    sf_count_t got = sf_readf_double(file_, interleaved_.data(), static_cast<sf_count_t>(frames));
    size_t count = got > 0 ? static_cast<size_t>(got) : 0;
    block.resize(count);
    size_t step = static_cast<size_t>(info_.channels);
    size_t rightOffset = step - 1;  // mono: the right channel repeats the left
    for (size_t frame = 0; frame < count; ++frame) {
        block.left[frame] = interleaved_[frame * step];
        block.right[frame] = interleaved_[frame * step + rightOffset];
    }
    return count;
}

WavWriter::WavWriter(const std::string& path, int format, int sampleRate) : path_(path) {
    SF_INFO info{};
    info.samplerate = sampleRate;
    info.channels = 2;
    info.format = format;
    file_ = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file_) throw CommandFailure("cannot write " + path + ": " + sf_strerror(nullptr));
    // Integer formats clip loud output instead of wrapping around.
    sf_command(file_, SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

WavWriter::~WavWriter() {
    if (file_) sf_close(file_);
}

void WavWriter::write(const StereoBuffer& block) {
    interleaved_.resize(block.frames() * 2);
    for (size_t frame = 0; frame < block.frames(); ++frame) {
        interleaved_[2 * frame] = block.left[frame];
        interleaved_[2 * frame + 1] = block.right[frame];
    }
    sf_count_t frames = static_cast<sf_count_t>(block.frames());
    if (sf_writef_double(file_, interleaved_.data(), frames) != frames)
        throw CommandFailure("cannot write " + path_ + ": " + sf_strerror(file_));
}

void WavWriter::finish() {
    int result = sf_close(file_);
    file_ = nullptr;
    if (result != 0) throw CommandFailure("cannot complete " + path_);
}
