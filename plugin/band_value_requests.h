// Reading and setting band values addressed by kind and rank; a band that a
// set request addresses but that does not exist yet is created.
#pragma once

#include <cstdint>

struct EqInstance;

void setBandValue(EqInstance* instance, int32_t type, int32_t ordinal, int32_t parameter,
                  bool normalized, float value);
void setBandEnabled(EqInstance* instance, int32_t type, int32_t ordinal, bool enable);
// The address and normalized value of parameter p (the output gain for p < 0).
int32_t describeParameter(EqInstance* instance, int32_t p, float* value);
float bandEnabledValue(EqInstance* instance, int32_t type, int32_t ordinal);
