#include "host/app/sample_format.h"

#include <sndfile.h>

#include <cstdio>

namespace {

struct SampleFormat {
    const char* option;
    int subtype;
    const char* name;
    int integerBits;
};

constexpr SampleFormat kSampleFormats[] = {
    {"pcm16", SF_FORMAT_PCM_16, "16-bit PCM", 16},
    {"pcm24", SF_FORMAT_PCM_24, "24-bit PCM", 24},
    {"pcm32", SF_FORMAT_PCM_32, "32-bit PCM", 32},
    {"float", SF_FORMAT_FLOAT, "32-bit float", 0},
    {"double", SF_FORMAT_DOUBLE, "64-bit float", 0},
    {nullptr, SF_FORMAT_PCM_S8, "8-bit PCM", 8},
    {nullptr, SF_FORMAT_PCM_U8, "8-bit PCM", 8},
    {nullptr, SF_FORMAT_VORBIS, "Vorbis", 0},
};

const SampleFormat* findSubtype(int subtype) {
    for (const SampleFormat& format : kSampleFormats)
        if (format.subtype == subtype) return &format;
    return nullptr;
}

}  // namespace

std::optional<int> findSampleFormat(const std::string& name) {
    for (const SampleFormat& format : kSampleFormats)
        if (format.option && name == format.option) return format.subtype;
    return std::nullopt;
}

std::string sampleFormatName(int subtype) {
    const SampleFormat* format = findSubtype(subtype);
    if (format) return format->name;
    char text[32];
    std::snprintf(text, sizeof text, "encoding 0x%04X", static_cast<unsigned>(subtype));
    return text;
}

int integerSampleBits(int subtype) {
    const SampleFormat* format = findSubtype(subtype);
    return format ? format->integerBits : 0;
}
