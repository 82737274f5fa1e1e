// The bands and the output gain as users set them: Hz, dB and octaves.
#pragma once

#include "host/app/state_chunk.h"
#include "host/vst/effect_session.h"

// A table: number, type, frequency, gain, bandwidth, enabled; then the output gain.
void printBands(const EffectState& state);

// One JSON object with the identity (when `withIdentity`), the output gain,
// the bands and the parameter table.
void printEffectJson(EffectSession& session, const EffectState& state, bool withIdentity);

// Linear amplitude in dB with the editor's floor of -150 dB.
double gainToDb(double gain);
