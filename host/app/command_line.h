// The program's command line: a command, its operands and options. Options
// may stand before or after the command.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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
    std::optional<std::string> audioFile;        // --audio FILE (edit)
    bool playSound = false;                      // --play (edit)
    std::optional<double> quitAfterSeconds;      // --quit-after SECONDS (edit)
    bool helpWanted = false;                     // --help
};

// Throws UsageError for unknown options, missing option values and malformed
// numbers or settings.
CommandLine parseCommandLine(int argc, char** argv);

// Parses "INDEX=VALUE" (VALUE a normalized value in 0..1); throws UsageError.
ParameterSetting parseParameterSetting(const std::string& text);

const char* usageText();
