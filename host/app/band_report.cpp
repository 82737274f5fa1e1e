#include "host/app/band_report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "host/app/band_types.h"

namespace {

constexpr double kSilenceDb = -150.0;

std::string jsonText(const std::string& text) {
    std::string quoted = "\"";
    for (unsigned char c : text) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += static_cast<char>(c);
        } else if (c < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            quoted += escaped;
        } else {
            quoted += static_cast<char>(c);
        }
    }
    return quoted + "\"";
}

std::string jsonNumber(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.12g", value);
    return text;
}

void printIdentityJson(EffectSession& session) {
    const AEffect& effect = *session.effect();
    std::printf("  \"name\": %s,\n  \"vendor\": %s,\n  \"product\": %s,\n",
                jsonText(session.effectName()).c_str(), jsonText(session.vendorName()).c_str(),
                jsonText(session.productName()).c_str());
    std::printf("  \"uniqueId\": %d,\n  \"version\": %d,\n", effect.uniqueID, effect.version);
}

void printBandsJson(const EffectState& state) {
    std::printf("  \"outputGainDb\": %s,\n  \"bands\": [", jsonNumber(gainToDb(state.outputGain)).c_str());
    for (size_t i = 0; i < state.bands.size(); ++i) {
        const ChunkBand& band = state.bands[i];
        std::printf("%s\n    {\"number\": %zu, \"type\": %s, \"frequencyHz\": %s, \"gainDb\": %s, "
                    "\"bandwidthOctaves\": %s, \"enabled\": %s}",
                    i ? "," : "", i + 1, jsonText(bandTypeName(band.type)).c_str(),
                    jsonNumber(band.frequency).c_str(), jsonNumber(gainToDb(band.gain)).c_str(),
                    jsonNumber(band.bandwidth).c_str(), band.enabled ? "true" : "false");
    }
    std::printf("%s],\n", state.bands.empty() ? "" : "\n  ");
}

void printParametersJson(EffectSession& session) {
    std::printf("  \"parameters\": [");
    for (int32_t index = 0; index < session.parameterCount(); ++index)
        std::printf("%s\n    {\"index\": %d, \"name\": %s, \"value\": %s, \"display\": %s, "
                    "\"label\": %s}",
                    index ? "," : "", index, jsonText(session.parameterName(index)).c_str(),
                    jsonNumber(session.parameter(index)).c_str(),
                    jsonText(session.parameterDisplay(index)).c_str(),
                    jsonText(session.parameterLabel(index)).c_str());
    std::printf("%s]\n", session.parameterCount() ? "\n  " : "");
}

}  // namespace

double gainToDb(double gain) {
    if (!(gain > 0.0)) return kSilenceDb;
    return std::max(kSilenceDb, 20.0 * std::log10(gain));
}

void printBands(const EffectState& state) {
    std::printf("bands:\n  %2s  %-13s %10s %9s %10s  %s\n", "#", "type", "freq (Hz)", "gain (dB)",
                "bw (oct)", "enabled");
    for (size_t i = 0; i < state.bands.size(); ++i) {
        const ChunkBand& band = state.bands[i];
        std::printf("  %2zu  %-13s %10.1f %+9.2f %10.2f  %s\n", i + 1, bandTypeName(band.type),
                    band.frequency, gainToDb(band.gain), band.bandwidth,
                    band.enabled ? "yes" : "no");
    }
    std::printf("output gain: %+.2f dB\n", gainToDb(state.outputGain));
}

void printEffectJson(EffectSession& session, const EffectState& state, bool withIdentity) {
    std::printf("{\n");
    if (withIdentity) printIdentityJson(session);
    printBandsJson(state);
    printParametersJson(session);
    std::printf("}\n");
}
