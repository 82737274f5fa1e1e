// "info": the effect's identity and its parameters.
#include "host/app/commands.h"
#include "host/app/effect_report.h"
#include "host/app/host_setup.h"

int runInfo(const CommandLine& line) {
    RunningEffect effect = startEffect(line);
    applyStateAndSettings(*effect.session, line);
    printIdentity(*effect.session);
    printParameters(*effect.session);
    return 0;
}
