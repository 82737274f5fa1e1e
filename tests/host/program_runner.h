// Runs the ombro-host program in its own process and collects what it wrote.
#pragma once

#include <string>
#include <vector>

struct ProgramResult {
    int exitCode = -1;  // -1 when it did not exit normally
    std::string out, err;
};

// The program left running, for tests that deal with it while it runs.
struct RunningProgram {
    int processId = -1;  // -1 when it could not be started
    std::string outPath, errPath;
};

RunningProgram startHostProgram(const std::vector<std::string>& arguments);
// Waits for the program to end and collects what it wrote.
ProgramResult finishHostProgram(const RunningProgram& program);
ProgramResult runHostProgram(const std::vector<std::string>& arguments);

// The lines of `text` that start with `prefix`.
std::vector<std::string> linesStartingWith(const std::string& text, const std::string& prefix);
// A fresh path in the test's temporary directory.
std::string temporaryPath(const std::string& name);
std::string fileContents(const std::string& path);
bool hasText(const std::string& text, const std::string& part);
