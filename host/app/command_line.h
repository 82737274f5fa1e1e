// The program's command line: a command, its operands and options. Options
// may stand before or after the command.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/app/band_setting.h"

struct ParameterSetting {
    int32_t index;
    float value;  // normalized, 0..1
};

struct CommandLine {
    std::string command;
    std::vector<std::string> operands;
    std::vector<ParameterSetting> settings;      // --set INDEX=VALUE
    std::optional<std::string> stateFile;        // --state FILE
    std::optional<double> sampleRate;            // --sample-rate HZ
    std::string pluginPath;                      // --plugin PATH
    std::vector<std::string> withheldExtensions;  // --without-extension NAME
    std::vector<std::string> missingUiFunctions;  // --without-ui-function NAME
    std::optional<intptr_t> uiVersion;           // --ui-version N
    int windowWidth = 1020;                      // --size WIDTHxHEIGHT
    int windowHeight = 640;
    bool playSound = false;                      // --play (edit)
    std::optional<double> quitAfterSeconds;      // --quit-after SECONDS (edit)
    bool helpWanted = false;                     // --help
    std::vector<BandSetting> bands;              // --band TYPE,FREQ,GAIN,BANDWIDTH[,off]
    std::optional<double> outputGainDb;          // --output-gain DB
    bool json = false;                           // --json
    bool csv = false;                            // --csv
    std::optional<int> sampleFormat;             // --format NAME (a libsndfile subtype)
    bool dither = true;                          // --no-dither
    std::optional<std::string> audioFile;        // --audio FILE (render-editor, edit)
    std::optional<double> playSeconds;           // --at SECONDS
    std::string demoFolder = "ombro-demo";       // --out DIR
    std::vector<std::string> warnings;           // values held to the editor's limits
};

// Throws UsageError for unknown options, missing option values and malformed
// numbers, bands or settings.
CommandLine parseCommandLine(int argc, char** argv);

// Parses "INDEX=VALUE" (VALUE a normalized value in 0..1); throws UsageError.
ParameterSetting parseParameterSetting(const std::string& text);

const char* usageText();
