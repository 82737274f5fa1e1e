#include "host/app/sound_file.h"

#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <sstream>

#include "host/app/program_error.h"
#include "host/app/sample_format.h"

namespace {

constexpr int kHighestSampleRate = 768000;

// libsndfile reads a file whose header announces more data than follows as
// far as it goes; its log then says what the length should have been.
bool isCutShort(SNDFILE* file) {
    char log[16384] = {};
    sf_command(file, SFC_GET_LOG_INFO, log, sizeof log);
    std::istringstream lines(log);
    for (std::string line; std::getline(lines, line);) {
        line.erase(0, line.find_first_not_of(' '));
        bool dataLine = line.rfind("data", 0) == 0 || line.rfind("SSND", 0) == 0;
        if (dataLine && line.find("(should be") != std::string::npos) return true;
    }
    return false;
}

std::string lowerCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string containerName(int container) {
    SF_FORMAT_INFO info{};
    info.format = container;
    if (sf_command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info) != 0 || !info.name)
        return "this container";
    return info.name;
}

bool canHold(int container, int subtype, int channels) {
    SF_INFO info{};
    info.format = container | subtype;
    info.channels = channels;
    info.samplerate = 44100;
    return sf_format_check(&info) != 0;
}

}  // namespace

SoundReader::SoundReader(const std::string& path) : path_(path) {
    if (access(path.c_str(), R_OK) != 0)
        throw CommandFailure("cannot read " + path + ": " + std::strerror(errno));
    if (std::filesystem::is_directory(path)) throw CommandFailure(path + " is a directory");
    file_ = sf_open(path.c_str(), SFM_READ, &info_);
    if (!file_)
        throw CommandFailure(path + " is not a sound file that can be read: " +
                             sf_strerror(nullptr));
    requireUsable();
}

void SoundReader::requireUsable() {
    const std::string& path = path_;
    std::string problem;
    if (isCutShort(file_))
        problem = path + " is cut short: its header announces more samples than it holds";
    else if (info_.channels < 1 || info_.channels > 2)
        problem = path + " has " + std::to_string(info_.channels) +
                  " channels; only mono and stereo files can be processed";
    else if (info_.samplerate <= 0 || info_.samplerate > kHighestSampleRate)
        problem = path + " has a sample rate of " + std::to_string(info_.samplerate) +
                  " Hz; it must lie above 0 and at most 768000 Hz";
    if (problem.empty()) return;
    sf_close(file_);
    file_ = nullptr;
    throw CommandFailure(problem);
}

SoundReader::~SoundReader() {
    if (file_) sf_close(file_);
}

size_t SoundReader::read(StereoBuffer& block, size_t frames) {
    interleaved_.resize(frames * static_cast<size_t>(info_.channels));
    sf_count_t got = sf_readf_double(file_, interleaved_.data(), static_cast<sf_count_t>(frames));
    size_t count = got > 0 ? static_cast<size_t>(got) : 0;
    framesRead_ += static_cast<int64_t>(count);
    if (count == 0 && frames > 0 && lengthKnown() && framesRead_ < info_.frames)
        throw CommandFailure(path_ + " is cut short: it ends after " + std::to_string(framesRead_) +
                             " of its " + std::to_string(info_.frames) + " frames");
    block.resize(count);
    size_t step = static_cast<size_t>(info_.channels);
    size_t rightOffset = step - 1;  // mono: the right channel repeats the left
    for (size_t frame = 0; frame < count; ++frame) {
        block.left[frame] = interleaved_[frame * step];
        block.right[frame] = interleaved_[frame * step + rightOffset];
    }
    return count;
}

SoundWriter::SoundWriter(const std::string& path, const SoundFormat& format, bool dither)
    : path_(path), format_(format) {
    int subtype = format.format & SF_FORMAT_SUBMASK;
    int bits = integerSampleBits(subtype);
    if (bits > 0) quantizer_.emplace(bits, dither && bits <= 16);
    canExceedFullScale_ = subtype == SF_FORMAT_FLOAT || subtype == SF_FORMAT_DOUBLE;
    SF_INFO info{};
    info.samplerate = format.sampleRate;
    info.channels = format.channels;
    info.format = format.format;
    file_ = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file_) throw CommandFailure("cannot write " + path + ": " + sf_strerror(nullptr));
    // Encodings other than PCM and float hold loud samples at full scale
    // instead of wrapping them around.
    sf_command(file_, SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

SoundWriter::~SoundWriter() {
    if (file_) sf_close(file_);
}

void SoundWriter::write(const StereoBuffer& block) {
    if (quantizer_)
        writeIntegers(block);
    else
        writeReals(block);
}

void SoundWriter::writeIntegers(const StereoBuffer& block) {
    size_t channels = static_cast<size_t>(format_.channels);
    integers_.resize(block.frames() * channels);
    for (size_t frame = 0; frame < block.frames(); ++frame) {
        integers_[frame * channels] = quantizer_->quantize(block.left[frame], clipping_);
        if (channels == 2)
            integers_[frame * channels + 1] = quantizer_->quantize(block.right[frame], clipping_);
    }
    sf_count_t frames = static_cast<sf_count_t>(block.frames());
    if (sf_writef_int(file_, integers_.data(), frames) != frames)
        throw CommandFailure("cannot write " + path_ + ": " + sf_strerror(file_));
}

void SoundWriter::writeReals(const StereoBuffer& block) {
    size_t channels = static_cast<size_t>(format_.channels);
    reals_.resize(block.frames() * channels);
    for (size_t frame = 0; frame < block.frames(); ++frame) {
        reals_[frame * channels] = block.left[frame];
        if (channels == 2) reals_[frame * channels + 1] = block.right[frame];
    }
    if (!canExceedFullScale_)
        for (double sample : reals_) {
            clipping_.note(sample);
            if (sample > 1.0 || sample < -1.0) ++clipping_.samples;
        }
    sf_count_t frames = static_cast<sf_count_t>(block.frames());
    if (sf_writef_double(file_, reals_.data(), frames) != frames)
        throw CommandFailure("cannot write " + path_ + ": " + sf_strerror(file_));
}

void SoundWriter::finish() {
    int result = sf_close(file_);
    file_ = nullptr;
    if (result != 0) throw CommandFailure("cannot complete " + path_);
}

int containerForPath(const std::string& path) {
    std::string extension = lowerCase(std::filesystem::path(path).extension().string());
    if (!extension.empty()) extension.erase(0, 1);
    if (extension == "aif") extension = "aiff";
    if (extension == "ogg") extension = "oga";
    int count = 0;
    sf_command(nullptr, SFC_GET_FORMAT_MAJOR_COUNT, &count, sizeof count);
    for (int i = 0; i < count; ++i) {
        SF_FORMAT_INFO info{};
        info.format = i;
        sf_command(nullptr, SFC_GET_FORMAT_MAJOR, &info, sizeof info);
        if (info.extension && extension == info.extension) return info.format;
    }
    throw UsageError("cannot tell a sound file format from the name " + path +
                     " (use an extension such as .wav, .flac or .aiff)");
}

int chooseSubtype(int container, int inputSubtype, const std::optional<int>& wanted) {
    if (wanted) {
        if (!canHold(container, *wanted, 1))
            throw UsageError(containerName(container) + " files cannot hold " +
                             sampleFormatName(*wanted) + " samples");
        return *wanted;
    }
    if (canHold(container, inputSubtype, 1)) return inputSubtype;
    for (int subtype : {SF_FORMAT_PCM_24, SF_FORMAT_PCM_16, SF_FORMAT_FLOAT, SF_FORMAT_VORBIS}) {
        if (!canHold(container, subtype, 1)) continue;
        std::fprintf(stderr, "ombro-host: note: %s files cannot hold %s samples; writing %s\n",
                     containerName(container).c_str(), sampleFormatName(inputSubtype).c_str(),
                     sampleFormatName(subtype).c_str());
        return subtype;
    }
    throw UsageError(containerName(container) + " files cannot hold the input's samples");
}
