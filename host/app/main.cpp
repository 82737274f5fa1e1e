// ombro-host: runs the equalizer in the stand-in host from the command line.
#include <cstdio>
#include <string>

#include "host/app/command_line.h"
#include "host/app/commands.h"
#include "host/app/program_error.h"

namespace {

struct Command {
    const char* name;
    size_t operandCount;
    const char* operands;  // as shown in messages
    int (*run)(const CommandLine&);
};

const Command kCommands[] = {
    {"demo", 0, "", runDemo},
    {"info", 0, "", runInfo},
    {"process", 2, "IN.wav OUT.wav", runProcess},
    {"save-state", 1, "FILE", runSaveState},
    {"load-state", 1, "FILE", runLoadState},
    {"render-editor", 1, "OUT.png", runRenderEditor},
    {"edit", 0, "", runEdit},
};

const Command& findCommand(const CommandLine& line) {
    if (line.command.empty()) throw UsageError("no command given");
    for (const Command& command : kCommands) {
        if (line.command != command.name) continue;
        if (line.operands.size() != command.operandCount)
            throw UsageError(std::string(command.name) + " expects " +
                             (command.operandCount ? command.operands : "no arguments"));
        return command;
    }
    throw UsageError("unknown command '" + line.command + "'");
}

}  // namespace

int main(int argc, char** argv) {
    try {
        CommandLine line = parseCommandLine(argc, argv);
        if (line.helpWanted) {
            std::fputs(usageText(), stdout);
            return 0;
        }
        int result = findCommand(line).run(line);
        std::fflush(stdout);
        return result;
    } catch (const UsageError& error) {
        std::fflush(stdout);
        std::fprintf(stderr, "ombro-host: %s\n\n%s", error.what(), usageText());
        return kExitBadUsage;
    } catch (const std::exception& error) {
        std::fflush(stdout);
        std::fprintf(stderr, "ombro-host: error: %s\n", error.what());
        return kExitCommandFailed;
    }
}
