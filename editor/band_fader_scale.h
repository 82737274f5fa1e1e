// The band panel's frequency and bandwidth faders: integer positions against
// Hz on the logarithmic axis and octaves in thousandths.
#pragma once

double frequencyOfFaderPosition(int position);
int frequencyFaderPosition(double frequency);

double bandwidthOfFaderPosition(int position);
int bandwidthFaderPosition(double bandwidth);

// A position truncated toward zero; values no fader can reach (not a number,
// far out of range) go to 0 or the int limits.
int truncatedPosition(double position);
