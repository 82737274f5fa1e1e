#include "host/app/host_setup.h"

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

void applyStateAndSettings(EffectSession& session, const CommandLine& line) {
    if (line.stateFile) session.setChunk(readStateFile(*line.stateFile));
    for (const ParameterSetting& setting : line.settings) {
        if (setting.index >= session.parameterCount())
            throw UsageError("--set: the effect has no parameter " +
                             std::to_string(setting.index) + " (it has " +
                             std::to_string(session.parameterCount()) + ")");
        session.setParameter(setting.index, setting.value);
    }
}
