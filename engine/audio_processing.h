// The audio path: every enabled band in series over a stereo float64 block,
// gliding changed bands in 8-sample chunks, then the output-gain ramp.
#pragma once

#include <cstdint>

#include "contracts/vst2.h"

struct EqInstance;

void processDoubleReplacing(AEffect* effect, double** inputs, double** outputs,
                            int32_t sampleFrames);
// The single-precision entries: the effect has no 32-bit path, they write nothing.
void processSinglePrecision(AEffect* effect, float** inputs, float** outputs,
                            int32_t sampleFrames);

// Clears every band's history and glide, takes over the instance sample rate,
// resets the output-gain ramp, the analyzers and the open edit gesture.
void resetBandStates(EqInstance* instance);
