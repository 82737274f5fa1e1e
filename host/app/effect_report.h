// What the program prints about an effect instance.
#pragma once

#include "host/vst/effect_session.h"

// Name, vendor, product, unique ID, version, flags and channel counts.
void printIdentity(EffectSession& session);
// One line per parameter: index, name, normalized value, display text, label.
void printParameters(EffectSession& session);
