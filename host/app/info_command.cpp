// "info": the effect's identity, its bands and its parameters.
#include <cstdio>

#include "host/app/band_report.h"
#include "host/app/commands.h"
#include "host/app/effect_report.h"
#include "host/app/host_setup.h"

int runInfo(const CommandLine& line) {
    RunningEffect effect = startEffect(line);
    EffectSession& session = *effect.session;
    applyStateAndSettings(session, line);
    EffectState state = currentState(session);
    if (line.json) {
        printEffectJson(session, state, true);
        return 0;
    }
    printIdentity(session);
    printBands(state);
    std::printf("parameters:\n");
    printParameters(session);
    return 0;
}
