// Ardour with a home of its own (the user's set-up is never read or
// written): the build installed into a temporary prefix and scanned.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <string>
#include <vector>

#include "tests/ardour/session_file.h"

struct ChildResult {
    int exitCode = -1;  // -1 when killed at the time limit
    std::string output;
};

// Runs a program in a process group of its own, which ends with it.
ChildResult runChild(const std::vector<std::string>& argv, int timeLimitSeconds = 60);

// A program left running beside the test, its output to a file.
class BackgroundChild {
public:
    BackgroundChild(const std::vector<std::string>& argv, const std::string& outputPath);
    ~BackgroundChild();
    bool running() const;

private:
    pid_t pid_;
};

// Six peaking bands (type 8), one of them disabled.
struct BandSetting {
    int32_t type, enabled;
    double frequency, gainDb, bandwidth;
};
inline const std::vector<BandSetting> kAddedBands = {
    {8, 1, 60.0, 6.0, 0.25},    {8, 1, 170.0, -9.0, 0.25},  {8, 1, 480.0, 4.0, 0.25},
    {8, 0, 1360.0, 12.0, 0.25}, {8, 1, 3840.0, -6.0, 0.25}, {8, 1, 10860.0, 3.0, 0.25},
};
constexpr double kOutputGainDb = -2.0;
// The state chunk of kAddedBands and kOutputGainDb, byte by byte.
std::vector<unsigned char> addedBandsChunk();

class ArdourSessionTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
    std::string path(const std::string& name) const { return root_ + "/" + name; }
    // A new session `name` with Ombro on the stereo track "Ombro", to edit.
    SessionFile createSession(const std::string& name);
    // The plug-in's parameter values; with `saveAs` Ardour saves the session again.
    std::vector<float> reopenSession(const std::string& name, const std::string& snapshot,
                                     const std::string& saveAs = "");

    std::string root_;
};
