// Sets the stand-in host up as the command line asks and opens the effect.
#pragma once

#include <memory>

#include "host/app/command_line.h"
#include "host/app/state_chunk.h"
#include "host/vst/effect_session.h"
#include "host/vst/plugin_library.h"

// Applies the windowing layer's options (they must be in place before the
// plug-in binds the layer while it loads), then loads the plug-in.
std::unique_ptr<PluginLibrary> loadPlugin(const CommandLine& line);

constexpr double kDefaultSampleRate = 44100.0;

// The loaded plug-in and one instance of it; the instance is closed first.
struct RunningEffect {
    std::unique_ptr<PluginLibrary> library;
    std::unique_ptr<EffectSession> session;
};

// Loads the plug-in and makes an instance at the --sample-rate, else at
// `fallbackSampleRate`, with the host's extensions minus the withheld ones.
// Throws CommandFailure when the plug-in cannot be loaded or refuses.
RunningEffect startEffect(const CommandLine& line, double fallbackSampleRate = kDefaultSampleRate);

// Loads the --state file, when given, then replaces the bands by the --band
// list and sets the --output-gain, then applies every --set in order.
// Throws CommandFailure for a state file that is not a valid state and
// UsageError for a parameter the effect does not have.
void applyStateAndSettings(EffectSession& session, const CommandLine& line);

// The effect's state as it stands, read from its chunk.
EffectState currentState(EffectSession& session);
