// The program's commands. Each returns the exit code; failures are thrown as
// UsageError or CommandFailure (program_error.h).
#pragma once

#include "host/app/command_line.h"

int runDemo(const CommandLine& line);
int runInfo(const CommandLine& line);
int runProcess(const CommandLine& line);
int runSaveState(const CommandLine& line);
int runLoadState(const CommandLine& line);
int runRenderEditor(const CommandLine& line);
int runResponse(const CommandLine& line);
int runEdit(const CommandLine& line);
