// The editor's output-gain fader and edit box.
#pragma once

#include <cstddef>

struct EqInstance;

constexpr int kOutputGainFader = 1047;
constexpr int kOutputGainEdit = 1011;

// dB shown for a linear gain: the floor for gains below 2^-25.
double displayDb(double gain);
// The editor writes the gain as "%.1f"; a host that sets it through a vendor
// request sees it signed.
constexpr const char* kGainTextFormat = "%.1f";
constexpr const char* kSignedGainTextFormat = "%+.1f";

// "-inf" for gains up to 1e-6, else the dB value in `dbFormat`.
void formatOutputGain(double gain, const char* dbFormat, char* text, size_t size);
// Moves the fader to the instance's output gain and writes its text into the
// edit box and the fader.
void showOutputGain(EqInstance* instance, const char* dbFormat);
