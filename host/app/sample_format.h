// Sample formats the user can ask `process` for, by name.
#pragma once

#include <optional>
#include <string>

// The libsndfile subtype of "pcm16", "pcm24", "pcm32", "float" or "double";
// empty for any other name.
std::optional<int> findSampleFormat(const std::string& name);

// "16-bit PCM", "32-bit float", ... for messages.
std::string sampleFormatName(int subtype);

// Bits of an integer PCM subtype (8, 16, 24, 32), 0 for other encodings.
int integerSampleBits(int subtype);
