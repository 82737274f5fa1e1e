// Linear gains as the editor shows them: in dB on the host's fader curve
// and as text.
#pragma once

#include <cstddef>

// dB shown for a linear gain: the floor for gains below 2^-25.
double displayDb(double gain);
// Linear gain of a level in dB (10^(dB/20)); no clamp.
double gainOfDb(double db);

// The host fader position of a gain, truncated toward zero.
int gainFaderPosition(double gain);
// The gain a host fader position stands for.
double gainOfFaderPosition(int position);

// "-inf" for gains up to 1e-6, else the dB value in `dbFormat`.
void formatGainText(double gain, const char* dbFormat, char* text, size_t size);
