// A band as the user writes it on the command line: TYPE,FREQ,GAIN,BANDWIDTH[,off]
// in Hz, dB and octaves, and the output gain in dB.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct BandSetting {
    int32_t type;
    double frequencyHz;
    double gainDb;
    double octaves;
    bool enabled = true;
};

// Parses "--band" text. Values beyond what the editor lets a user set are
// held to its limits, each with a line appended to `warnings`; anything
// unparsable throws UsageError naming the bad part.
BandSetting parseBandSetting(const std::string& text, std::vector<std::string>& warnings);

// Parses "--output-gain" dB, held to the range of the editor's output fader.
double parseOutputGainDb(const std::string& text, std::vector<std::string>& warnings);
