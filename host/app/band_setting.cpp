#include "host/app/band_setting.h"

#include <cstdio>
#include <sstream>

#include "host/app/band_types.h"
#include "host/app/number_text.h"
#include "host/app/program_error.h"

namespace {

// What the editor lets a user set: the graph and the band panel keep
// frequencies to 20..24000 Hz, bandwidths to 0..4 octaves and gains to at
// most 64 (+36.1 dB); the faders end at -150 dB, the output fader at +12 dB.
constexpr double kLowestFrequencyHz = 20.0;
constexpr double kHighestFrequencyHz = 24000.0;
constexpr double kLowestGainDb = -150.0;
constexpr double kHighestBandGainDb = 36.12359947967774;  // 20·log10(64)
constexpr double kHighestOutputGainDb = 12.0;
constexpr double kNarrowestOctaves = 0.0;
constexpr double kWidestOctaves = 4.0;

struct Limits {
    double lowest;
    double highest;
    const char* unit;
};

std::string formatValue(double value, const char* unit) {
    char text[64];
    std::snprintf(text, sizeof text, "%g%s%s", value, *unit ? " " : "", unit);
    return text;
}

double holdToLimits(double value, const Limits& limits, const std::string& what,
                    std::vector<std::string>& warnings) {
    double held = value < limits.lowest ? limits.lowest
                  : value > limits.highest ? limits.highest : value;
    if (held != value)
        warnings.push_back(what + " " + formatValue(value, limits.unit) +
                           " is beyond what the editor allows; using " +
                           formatValue(held, limits.unit));
    return held;
}

std::vector<std::string> splitAtCommas(const std::string& text) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    std::string part;
    while (std::getline(stream, part, ',')) parts.push_back(part);
    if (!text.empty() && text.back() == ',') parts.push_back("");
    return parts;
}

}  // namespace

BandSetting parseBandSetting(const std::string& text, std::vector<std::string>& warnings) {
    const std::string where = "--band '" + text + "': ";
    std::vector<std::string> parts = splitAtCommas(text);
    if (parts.size() < 4 || parts.size() > 5)
        throw UsageError(where + "expected TYPE,FREQ,GAIN,BANDWIDTH[,off]");
    std::optional<int32_t> type = findBandType(parts[0]);
    if (!type) throw UsageError(where + "unknown band type '" + parts[0] + "'");
    if (parts.size() == 5 && parts[4] != "off" && parts[4] != "on")
        throw UsageError(where + "expected 'off' or 'on' after the bandwidth, got '" +
                         parts[4] + "'");
    BandSetting band{};
    band.type = *type;
    band.frequencyHz = holdToLimits(parseFrequency(parts[1], where + "frequency"),
                                    {kLowestFrequencyHz, kHighestFrequencyHz, "Hz"},
                                    where + "frequency", warnings);
    band.gainDb = holdToLimits(parseNumber(parts[2], where + "gain"),
                               {kLowestGainDb, kHighestBandGainDb, "dB"}, where + "gain",
                               warnings);
    band.octaves = holdToLimits(parseNumber(parts[3], where + "bandwidth"),
                                {kNarrowestOctaves, kWidestOctaves, "octaves"},
                                where + "bandwidth", warnings);
    band.enabled = parts.size() == 4 || parts[4] == "on";
    return band;
}

double parseOutputGainDb(const std::string& text, std::vector<std::string>& warnings) {
    return holdToLimits(parseNumber(text, "--output-gain"),
                        {kLowestGainDb, kHighestOutputGainDb, "dB"}, "--output-gain", warnings);
}
