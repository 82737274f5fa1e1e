// A sandboxed Ardour and the steps every Ardour test takes: a session with
// Ombro on a stereo track, its parameters read back after reopening, and the
// equalizer state the tests give it as a chunk.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/ardour/ardour_sandbox.h"

// One band of a state given to Ombro, with its gain in dB.
struct BandSetting {
    int32_t type;
    int32_t enabled;
    double frequency;
    double gainDb;
    double bandwidth;
};

// Peaking bands (type 8) an octave and a half apart and a quarter octave
// wide, so that each band's centre shows its own gain; one band disabled.
// Six bands: two more than a fresh instance has.
inline const std::vector<BandSetting> kAddedBandsState = {
    {8, 1, 60.0, 6.0, 0.25},    {8, 1, 170.0, -9.0, 0.25},  {8, 1, 480.0, 4.0, 0.25},
    {8, 0, 1360.0, 12.0, 0.25}, {8, 1, 3840.0, -6.0, 0.25}, {8, 1, 10860.0, 3.0, 0.25},
};
constexpr double kStateOutputGainDb = -2.0;

double linearGain(double db);
// The chunk of a state with these bands and output gain, byte by byte.
std::vector<unsigned char> stateChunk(const std::vector<BandSetting>& bands, double outputGainDb);
// The host's normalized parameter values of these bands: frequency (mapped
// logarithmically), gain and bandwidth for each band.
std::vector<float> normalizedParameters(const std::vector<BandSetting>& bands);

class ArdourSessionTest : public ::testing::Test {
protected:
    static constexpr int kSampleRate = 48000;

    void SetUp() override;

    std::string sessionFolder(const std::string& name) const { return sandbox->path(name); }
    // A new session `name` (folder and snapshot) with Ombro on the track
    // "Ombro" and these "INDEX=VALUE" parameter settings made in Ardour.
    void createSession(const std::string& name, const std::vector<std::string>& settings = {});
    // Opens the session and returns the plug-in's parameter values; with
    // `saveAs` Ardour saves it again under that snapshot name.
    std::vector<float> reopenSession(const std::string& name, const std::string& snapshot,
                                     const std::string& saveAs = "");

    std::unique_ptr<ArdourSandbox> sandbox;
};
