// Names, unit labels and display texts of the host parameters.
#pragma once

#include <cstdint>

struct EqInstance;

// Each writes into the host's buffer (limit 256) and answers 1, or writes
// "" and answers 0 for an index that names no parameter.
intptr_t writeParameterLabel(EqInstance* instance, int32_t index, char* text);
intptr_t writeParameterDisplay(EqInstance* instance, int32_t index, char* text);
intptr_t writeParameterName(EqInstance* instance, int32_t index, char* text);

// Copies `text` into a host buffer of `limit` bytes, always terminated.
void copyHostText(char* destination, const char* text, int limit);

constexpr int kParameterTextLimit = 256;
constexpr int kNameTextLimit = 32;
