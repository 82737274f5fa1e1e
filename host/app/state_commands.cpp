// "save-state" and "load-state": the effect's state chunk to and from a file.
#include <cstdio>

#include "host/app/band_report.h"
#include "host/app/commands.h"
#include "host/app/effect_report.h"
#include "host/app/host_setup.h"
#include "host/app/pending_output.h"
#include "host/app/program_error.h"
#include "host/app/state_file.h"

int runSaveState(const CommandLine& line) {
    const std::string& path = line.operands[0];
    RunningEffect effect = startEffect(line);
    applyStateAndSettings(*effect.session, line);
    std::vector<uint8_t> chunk = effect.session->chunk();
    if (chunk.empty()) throw CommandFailure("the effect gave no state to save");
    PendingOutput output(path);
    writeStateFile(output.path(), chunk);
    output.commit();
    std::printf("saved %zu bytes of state to %s\n", chunk.size(), path.c_str());
    return 0;
}

int runLoadState(const CommandLine& line) {
    const std::string& path = line.operands[0];
    std::vector<uint8_t> chunk = readStateFile(path);
    RunningEffect effect = startEffect(line);
    effect.session->setChunk(chunk);
    applyStateAndSettings(*effect.session, line);
    EffectState state = currentState(*effect.session);
    if (line.json) {
        printEffectJson(*effect.session, state, false);
        return 0;
    }
    std::printf("loaded %zu bytes of state from %s\n", chunk.size(), path.c_str());
    printBands(state);
    std::printf("parameters:\n");
    printParameters(*effect.session);
    return 0;
}
