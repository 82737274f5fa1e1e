// Generated tones and their measured level, for the demonstration.
#pragma once

#include <cstddef>

#include "host/vst/stereo_buffer.h"

// A sine of `frequency` Hz and peak `amplitude` on both channels.
StereoBuffer makeTone(double frequency, double amplitude, double sampleRate, size_t frames);

// RMS level in dBFS of both channels of `buffer` from frame `from` on
// (-150 dB for silence).
double rmsLevelDb(const StereoBuffer& buffer, size_t from);

// Noise with a 440 Hz tone on top, the same on every run.
StereoBuffer makeNoisyTone(double sampleRate, size_t frames);

// White noise of peak `amplitude` on both channels, the same on every run.
StereoBuffer makeNoise(double amplitude, size_t frames);

// `first` followed by `second`.
StereoBuffer joinSignals(const StereoBuffer& first, const StereoBuffer& second);
