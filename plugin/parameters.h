// The host's view of the equalizer: three automatable parameters per band
// (index 3 * band + field), their normalized mappings, and the notices by
// which the editor reports its own changes for automation.
#pragma once

#include <cstdint>

#include "contracts/vst2.h"

struct EqInstance;
struct EqBand;

enum ParameterField : int32_t { FrequencyField = 0, GainField = 1, BandwidthField = 2 };

constexpr int32_t kParametersPerBand = 3;

// The logarithmic frequency axis shared by automation, faders and the graph.
constexpr double kLn401 = 5.993961427306569;
constexpr double kInverseLn401 = 0.16683457378359495;
constexpr double kInverseFrequencySpan = 4.170141784820684e-5;  // 1 / 23980
constexpr double kDbToLog = 0.11512925464970228;                // ln 10 / 20

float getParameter(AEffect* effect, int32_t index);
void setParameter(AEffect* effect, int32_t index, float value);

// The band of parameter p, or null when p names no existing band.
EqBand* bandOfParameter(const EqInstance* instance, int32_t p);
// Frequency in Hz from a normalized value on the band's own scale, limited to 20..24000.
double frequencyFromNormalized(const EqBand& band, double v);
// Normalized value on the logarithmic scale of a frequency in Hz.
double logFrequencyToNormalized(double frequency);

float paramValue(EqInstance* instance, int32_t p);
void touchParameter(EqInstance* instance, int32_t p);
void reportParameter(EqInstance* instance, int32_t p, bool end);

double ampToDb(double x);
// Writes the note name of `frequency`, such as "A3" (at most 16 bytes), or "".
void noteName(char* out, double frequency);
