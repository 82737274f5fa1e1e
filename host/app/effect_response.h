// The effect's frequency response, measured on its own audio path.
#pragma once

#include <complex>
#include <vector>

#include "host/vst/effect_session.h"

// The left output's impulse response to a unit impulse on both inputs,
// taken once the effect's settings have settled, until it has died away.
std::vector<double> measureImpulseResponse(EffectSession& session);

// The transfer function H(e^jω) of an impulse response at `frequency` Hz.
std::complex<double> transferAt(const std::vector<double>& impulse, double frequency,
                                double sampleRate);
