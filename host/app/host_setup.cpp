#include "host/app/host_setup.h"

#include <cmath>
#include <string>

#include "host/app/program_error.h"
#include "host/app/state_file.h"
#include "host/ui/kobal_layer_options.h"

std::unique_ptr<PluginLibrary> loadPlugin(const CommandLine& line) {
    KobalLayerOptions options;
    options.missingFunctions.insert(line.missingUiFunctions.begin(),
                                    line.missingUiFunctions.end());
    if (line.uiVersion) options.interfaceVersion = *line.uiVersion;
    setKobalLayerOptions(options);
    try {
        return std::make_unique<PluginLibrary>(line.pluginPath);
    } catch (const std::runtime_error& error) {
        throw CommandFailure(error.what());
    }
}

RunningEffect startEffect(const CommandLine& line, double fallbackSampleRate) {
    RunningEffect running;
    running.library = loadPlugin(line);
    SessionOptions options;
    options.sampleRate = line.sampleRate.value_or(fallbackSampleRate);
    options.withheldExtensions.insert(line.withheldExtensions.begin(),
                                      line.withheldExtensions.end());
    running.session = EffectSession::open(*running.library, options);
    if (!running.session)
        throw CommandFailure("the plug-in refused to create an instance (a host extension it "
                             "requires is missing)");
    return running;
}

namespace {

constexpr double kNepersPerDecibel = 0.11512925464970228;  // ln(10) / 20

ChunkBand chunkBand(const BandSetting& setting) {
    ChunkBand band;
    band.type = setting.type;
    band.enabled = setting.enabled ? 1 : 0;
    band.frequency = setting.frequencyHz;
    band.gain = std::exp(setting.gainDb * kNepersPerDecibel);
    band.bandwidth = setting.octaves;
    return band;
}

// The effect changes its band list and parameter count when it loads a
// chunk, so the host builds one with the requested bands and the effect's
// own view settings.
void applyBandsAndOutputGain(EffectSession& session, const CommandLine& line) {
    if (line.bands.empty() && !line.outputGainDb) return;
    EffectState state = currentState(session);
    if (!line.bands.empty()) {
        state.bands.clear();
        for (const BandSetting& setting : line.bands) state.bands.push_back(chunkBand(setting));
    }
    if (line.outputGainDb) state.outputGain = std::exp(*line.outputGainDb * kNepersPerDecibel);
    session.setChunk(encodeStateChunk(state));
}

}  // namespace

EffectState currentState(EffectSession& session) {
    std::vector<uint8_t> chunk = session.chunk();
    try {
        return decodeStateChunk(chunk);
    } catch (const CommandFailure& failure) {
        throw CommandFailure(std::string("the effect reported a state the host cannot read: ") +
                             failure.what());
    }
}

void applyStateAndSettings(EffectSession& session, const CommandLine& line) {
    if (line.stateFile) session.setChunk(readStateFile(*line.stateFile));
    applyBandsAndOutputGain(session, line);
    for (const ParameterSetting& setting : line.settings) {
        if (setting.index >= session.parameterCount())
            throw UsageError("--set: the effect has no parameter " +
                             std::to_string(setting.index) + " (it has " +
                             std::to_string(session.parameterCount()) + ")");
        session.setParameter(setting.index, setting.value);
    }
}
