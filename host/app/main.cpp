// ombro-host: runs the equalizer in the stand-in host from the command line.
#include <cstdio>
#include <limits>
#include <string>

#include "host/app/command_line.h"
#include "host/app/commands.h"
#include "host/app/program_error.h"

namespace {

// An operand count for commands that take any number of operands.
constexpr size_t kAnyOperands = std::numeric_limits<size_t>::max();

struct Command {
    const char* name;
    size_t operandCount;
    const char* operands;  // as shown in messages
    int (*run)(const CommandLine&);
};

const Command kCommands[] = {
    {"demo", 0, "", runDemo},
    {"info", 0, "", runInfo},
    {"process", 2, "IN OUT", runProcess},
    {"save-state", 1, "FILE", runSaveState},
    {"load-state", 1, "FILE", runLoadState},
    {"render-editor", 1, "OUT.png", runRenderEditor},
    {"response", kAnyOperands, "[FREQ...]", runResponse},
    {"edit", 0, "", runEdit},
};

const Command& findCommand(const CommandLine& line) {
    if (line.command.empty()) throw UsageError("no command given");
    for (const Command& command : kCommands) {
        if (line.command != command.name) continue;
        if (command.operandCount != kAnyOperands && line.operands.size() != command.operandCount)
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
        const Command& command = findCommand(line);
        for (const std::string& warning : line.warnings)
            std::fprintf(stderr, "ombro-host: warning: %s\n", warning.c_str());
        int result = command.run(line);
        std::fflush(stdout);
        return result;
    } catch (const UsageError& error) {
        std::fflush(stdout);
        std::fprintf(stderr, "ombro-host: %s\nTry 'ombro-host --help' for more information.\n",
                     error.what());
        return kExitBadUsage;
    } catch (const std::exception& error) {
        std::fflush(stdout);
        std::fprintf(stderr, "ombro-host: error: %s\n", error.what());
        return kExitCommandFailed;
    }
}
