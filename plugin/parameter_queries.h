// Questions a host asks about parameters without changing anything: the
// range and default, the text of any normalized value, the value of a text.
#pragma once

#include <cstdint>

struct EqInstance;

intptr_t describeParameterRange(EqInstance* instance, int32_t p, double* out);
intptr_t displayTextOfValue(EqInstance* instance, int32_t p, float value, char* text);
intptr_t valueOfDisplayText(EqInstance* instance, int32_t p, char* text);
