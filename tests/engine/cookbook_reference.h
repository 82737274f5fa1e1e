// The Audio EQ Cookbook formulas written out independently of the plug-in,
// for the values a band should end up with after its clamps and substitutions.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/eq_band.h"

struct ReferenceCoefficients {
    double a1, a2, b0, b1, b2;
};

// `slope` is the shelf slope S.
ReferenceCoefficients referenceLowShelf(double sampleRate, double frequency, double gain,
                                        double slope);
ReferenceCoefficients referenceHighShelf(double sampleRate, double frequency, double gain,
                                         double slope);
// Peaking EQ with the bandwidth in octaves; `alphaTimesA` for the alternative
// whose poles stay put as the gain moves.
ReferenceCoefficients referencePeaking(double sampleRate, double frequency, double gain,
                                       double octaves, bool alphaTimesA = false);
// Low pass, high pass, all pass, notch and band pass (codes 3..7).
ReferenceCoefficients referenceFilter(int32_t type, double sampleRate, double frequency,
                                      double octaves);

// Compares the band's five coefficients bit for bit.
void expectCoefficients(const EqBand& band, const ReferenceCoefficients& expected);

// Magnitude response in dB at `frequency`.
double responseDb(const EqBand& band, double frequency);

// Compares two runs of samples bit for bit.
void expectSameSamples(const std::vector<double>& actual, const std::vector<double>& expected);
