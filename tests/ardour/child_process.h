// Runs a tool of the host under test in its own process group, with its own
// environment, a time limit and its output collected.
#pragma once

#include <map>
#include <string>
#include <vector>

struct ChildResult {
    int exitCode = -1;      // -1 when it did not exit normally
    bool timedOut = false;  // killed at the time limit
    std::string output;     // standard output and standard error, interleaved

    bool succeeded() const { return exitCode == 0 && !timedOut; }
};

// Environment entries set (or replaced) on top of this process's environment.
using EnvironmentChanges = std::map<std::string, std::string>;

ChildResult runChild(const std::vector<std::string>& argv, const EnvironmentChanges& environment,
                     double timeLimitSeconds);

// A child left running while the test works beside it (a GUI); killed with its
// whole process group when the object goes.
class BackgroundChild {
public:
    BackgroundChild(const std::vector<std::string>& argv, const EnvironmentChanges& environment,
                    const std::string& outputPath);
    ~BackgroundChild();
    BackgroundChild(const BackgroundChild&) = delete;
    BackgroundChild& operator=(const BackgroundChild&) = delete;

    bool started() const { return pid_ > 0; }
    bool running();

private:
    int pid_ = -1;
};
