#include "host/app/command_line.h"

#include <functional>
#include <limits>

#include "host/app/number_text.h"
#include "host/app/plugin_location.h"
#include "host/app/program_error.h"
#include "host/app/sample_format.h"

namespace {

constexpr double kHighestSampleRate = 768000.0;

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
         if (rate <= 0.0 || rate > kHighestSampleRate)
             throw UsageError("sample rate must lie above 0 and at most 768000 Hz: " + value);
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
    {"--band", true,
     [](CommandLine& line, const std::string& value) {
         line.bands.push_back(parseBandSetting(value, line.warnings));
     }},
    {"--output-gain", true,
     [](CommandLine& line, const std::string& value) {
         line.outputGainDb = parseOutputGainDb(value, line.warnings);
     }},
    {"--json", false, [](CommandLine& line, const std::string&) { line.json = true; }},
    {"--csv", false, [](CommandLine& line, const std::string&) { line.csv = true; }},
    {"--format", true,
     [](CommandLine& line, const std::string& value) {
         line.sampleFormat = findSampleFormat(value);
         if (!line.sampleFormat)
             throw UsageError("--format expects pcm16, pcm24, pcm32, float or double, got '" +
                              value + "'");
     }},
    {"--no-dither", false, [](CommandLine& line, const std::string&) { line.dither = false; }},
    {"--audio", true, [](CommandLine& line, const std::string& value) { line.audioFile = value; }},
    {"--at", true,
     [](CommandLine& line, const std::string& value) {
         double seconds = parseNumber(value, "--at");
         if (seconds <= 0.0) throw UsageError("--at expects a time after the start: " + value);
         line.playSeconds = seconds;
     }},
    {"--out", true, [](CommandLine& line, const std::string& value) { line.demoFolder = value; }},
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
           "  process IN OUT           equalize a sound file (WAV, FLAC, AIFF, ...: the\n"
           "                           container follows OUT's extension)\n"
           "  response [FREQ...]       the combined response in dB and degrees at FREQ Hz,\n"
           "                           or over a logarithmic grid from 20 Hz to 24 kHz\n"
           "  save-state FILE          write the effect's state to FILE\n"
           "  load-state FILE          load a state from FILE and show its bands\n"
           "  info                     show the effect's identity, bands and parameters\n"
           "  render-editor OUT.png    play audio with the editor open and save a picture\n"
           "  demo                     equalize a test signal and leave the files in --out\n"
           "  edit                     open the editor in a window while audio plays;\n"
           "                           on close the state goes back to --state FILE\n"
           "\n"
           "bands and gain (process, save-state, render-editor, response, info):\n"
           "  --band TYPE,FREQ,GAIN,BANDWIDTH[,off]\n"
           "                           one band (repeatable; the bands replace the others):\n"
           "                           TYPE Low Shelf, High Shelf, Band (or peak, bell),\n"
           "                           Low Pass, High Pass, All Pass, Notch, Band Pass,\n"
           "                           Band (alt), Band (alt 2), any case, spaces optional;\n"
           "                           FREQ in Hz (2.5k allowed), GAIN in dB, BANDWIDTH\n"
           "                           in octaves; ',off' adds the band switched off\n"
           "  --output-gain DB         the gain after the bands\n"
           "  --state FILE             load the effect's state from FILE first\n"
           "  --set INDEX=VALUE        set a host parameter to a normalized value in 0..1\n"
           "                           (repeatable; applied after --state and --band)\n"
           "\n"
           "process:\n"
           "  --format NAME            pcm16, pcm24, pcm32, float or double (default: the\n"
           "                           input's)\n"
           "  --no-dither              no TPDF dither when writing 16 bits or fewer\n"
           "render-editor:\n"
           "  --audio FILE             play FILE through the effect (default: a test signal)\n"
           "  --at SECONDS             play it up to SECONDS (default: 10, or all of it)\n"
           "  --size WIDTHxHEIGHT      host window, also for edit (default 1020x640)\n"
           "info, load-state:  --json  print for scripts\n"
           "response:          --csv   print comma-separated values\n"
           "demo:              --out DIR   where its files go (default ./ombro-demo)\n"
           "edit:\n"
           "  --audio FILE             a sound file played in a loop (default: tones)\n"
           "  --play                   sound to the default ALSA device\n"
           "  --quit-after SECONDS     close the window after SECONDS\n"
           "\n"
           "host:\n"
           "  --sample-rate HZ         sample rate told to the effect (default: the\n"
           "                           input file's, or 44100)\n"
           "  --plugin PATH            the effect's shared object\n"
           "  --without-extension NAME     the host withholds an extension function\n"
           "  --without-ui-function NAME   the windowing layer withholds a function\n"
           "  --ui-version N           interface version the windowing layer answers\n"
           "  --help                   show this text\n";
}
