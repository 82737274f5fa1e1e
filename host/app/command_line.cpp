#include "host/app/command_line.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>

#include "host/app/plugin_location.h"
#include "host/app/program_error.h"

namespace {

double parseNumber(const std::string& text, const std::string& what) {
    char* end = nullptr;
    errno = 0;
    double number = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || errno == ERANGE || !std::isfinite(number))
        throw UsageError(what + " is not a number: '" + text + "'");
    return number;
}

long long parseInteger(const std::string& text, const std::string& what) {
    char* end = nullptr;
    errno = 0;
    long long number = std::strtoll(text.c_str(), &end, 0);  // accepts 0x... too
    if (text.empty() || *end != '\0' || errno == ERANGE)
        throw UsageError(what + " is not an integer: '" + text + "'");
    return number;
}

using OptionHandler = std::function<void(CommandLine&, const std::string&)>;

struct Option {
    const char* name;
    bool takesValue;
    OptionHandler apply;
};

const Option kOptions[] = {
    {"--set", true,
     [](CommandLine& line, const std::string& value) {
         line.settings.push_back(parseParameterSetting(value));
     }},
    {"--state", true, [](CommandLine& line, const std::string& value) { line.stateFile = value; }},
    {"--sample-rate", true,
     [](CommandLine& line, const std::string& value) {
         double rate = parseNumber(value, "sample rate");
         if (rate < 1.0 || rate > 1e6) throw UsageError("sample rate out of range: " + value);
         line.sampleRate = rate;
     }},
    {"--plugin", true, [](CommandLine& line, const std::string& value) { line.pluginPath = value; }},
    {"--without-extension", true,
     [](CommandLine& line, const std::string& value) { line.withheldExtensions.push_back(value); }},
    {"--without-ui-function", true,
     [](CommandLine& line, const std::string& value) { line.missingUiFunctions.push_back(value); }},
    {"--ui-version", true,
     [](CommandLine& line, const std::string& value) {
         line.uiVersion = static_cast<intptr_t>(parseInteger(value, "UI version"));
     }},
    {"--size", true,
     [](CommandLine& line, const std::string& value) {
         size_t cross = value.find('x');
         if (cross == std::string::npos) throw UsageError("--size expects WIDTHxHEIGHT, got '" + value + "'");
         long long width = parseInteger(value.substr(0, cross), "window width");
         long long height = parseInteger(value.substr(cross + 1), "window height");
         if (width < 1 || height < 1 || width > 8192 || height > 8192)
             throw UsageError("window size out of range: " + value);
         line.windowWidth = static_cast<int>(width);
         line.windowHeight = static_cast<int>(height);
     }},
    {"--audio", true, [](CommandLine& line, const std::string& value) { line.audioFile = value; }},
    {"--play", false, [](CommandLine& line, const std::string&) { line.playSound = true; }},
    {"--quit-after", true,
     [](CommandLine& line, const std::string& value) {
         double seconds = parseNumber(value, "--quit-after");
         if (seconds < 0.0) throw UsageError("--quit-after must not be negative: " + value);
         line.quitAfterSeconds = seconds;
     }},
    {"--help", false, [](CommandLine& line, const std::string&) { line.helpWanted = true; }},
};

const Option* findOption(const std::string& name) {
    for (const Option& option : kOptions)
        if (name == option.name) return &option;
    return nullptr;
}

}  // namespace

ParameterSetting parseParameterSetting(const std::string& text) {
    size_t equals = text.find('=');
    if (equals == std::string::npos)
        throw UsageError("--set expects INDEX=VALUE, got '" + text + "'");
    long long index = parseInteger(text.substr(0, equals), "parameter index");
    double value = parseNumber(text.substr(equals + 1), "parameter value");
    if (index < 0 || index > std::numeric_limits<int32_t>::max())
        throw UsageError("parameter index out of range: " + text.substr(0, equals));
    if (value < 0.0 || value > 1.0)
        throw UsageError("parameter value must lie in 0..1: " + text.substr(equals + 1));
    return {static_cast<int32_t>(index), static_cast<float>(value)};
}

CommandLine parseCommandLine(int argc, char** argv) {
    CommandLine line;
    line.pluginPath = defaultPluginPath();
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        if (argument.size() > 2 && argument.compare(0, 2, "--") == 0) {
            const Option* option = findOption(argument);
            if (!option) throw UsageError("unknown option " + argument);
            std::string value;
            if (option->takesValue) {
                if (i + 1 >= argc) throw UsageError(argument + " needs a value");
                value = argv[++i];
            }
            option->apply(line, value);
        } else if (line.command.empty()) {
            line.command = argument;
        } else {
            line.operands.push_back(argument);
        }
    }
    return line;
}

const char* usageText() {
    return "usage: ombro-host [OPTIONS] COMMAND [ARGUMENTS]\n"
           "\n"
           "commands:\n"
           "  demo                     show the effect and equalize a test signal\n"
           "  info                     show the effect's identity and parameters\n"
           "  process IN.wav OUT.wav   equalize a WAV file (mono input is duplicated)\n"
           "  save-state FILE          write the effect's state to FILE\n"
           "  load-state FILE          load a state from FILE and show the parameters\n"
           "  render-editor OUT.png    open the editor on a test signal and save a picture\n"
           "  edit                     open the editor in a window while audio plays;\n"
           "                           on close the state goes back to --state FILE\n"
           "\n"
           "options:\n"
           "  --set INDEX=VALUE        set a parameter to a normalized value in 0..1\n"
           "                           (repeatable; applied after --state)\n"
           "  --state FILE             load the effect's state from FILE first\n"
           "  --sample-rate HZ         sample rate told to the effect (default: the\n"
           "                           input file's, or 44100)\n"
           "  --plugin PATH            the effect's shared object\n"
           "  --size WIDTHxHEIGHT      editor window for render-editor and edit\n"
           "                           (default 1020x640)\n"
           "  --audio FILE             edit: a WAV file played in a loop (default: tones)\n"
           "  --play                   edit: sound to the default ALSA device\n"
           "  --quit-after SECONDS     edit: close the window after SECONDS\n"
           "  --without-extension NAME     the host withholds an extension function\n"
           "  --without-ui-function NAME   the windowing layer withholds a function\n"
           "  --ui-version N           interface version the windowing layer answers\n"
           "  --help                   show this text\n";
}
