// Failures the program reports to the user and ends with: a mistake on the
// command line (exit code 2) or a failure while running a command (exit code 1).
#pragma once

#include <stdexcept>

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct CommandFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

constexpr int kExitCommandFailed = 1;
constexpr int kExitBadUsage = 2;
