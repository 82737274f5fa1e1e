// Generated tones and their measured level, for the demonstration.
#pragma once

#include <cstddef>

#include "host/vst/stereo_buffer.h"

// A sine of `frequency` Hz and peak `amplitude` on both channels.
StereoBuffer makeTone(double frequency, double amplitude, double sampleRate, size_t frames);

// RMS level in dBFS of both channels of `buffer` from frame `from` on
// (-150 dB for silence).
double rmsLevelDb(const StereoBuffer& buffer, size_t from);
