// How the stand-in host presents itself to one effect instance.
#pragma once

#include <cstdint>
#include <set>
#include <string>

struct SessionOptions {
    double sampleRate = 44100.0;
    int32_t blockSize = 512;
    // Extension functions the host pretends not to have: requests for these
    // names are answered with 0.
    std::set<std::string> withheldExtensions;
};
