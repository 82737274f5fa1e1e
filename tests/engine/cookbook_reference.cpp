#include "tests/engine/cookbook_reference.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <complex>

namespace {

const double kPi = 3.141592653589793;
const double kHalfLn2 = 0.34657359027997264;

struct Angle {
    double w0, s, c;
    Angle(double sampleRate, double frequency)
        : w0(2 * frequency / sampleRate * kPi), s(std::sin(w0)), c(std::cos(w0)) {}
};

double octaveAlpha(const Angle& w, double octaves) {
    double phi = w.w0 < kPi / 2 ? w.w0 / w.s : kPi / 2;
    return w.s * std::sinh(kHalfLn2 * octaves * phi);
}

double shelfAlpha(const Angle& w, double A, double slope) {
    return w.s / 2 * std::sqrt((A + 1 / A) * (1 / slope - 1) + 2);
}

ReferenceCoefficients normalize(double a0, double a1, double a2, double b0, double b1,
                                double b2) {
    return {a1 / a0, a2 / a0, b0 / a0, b1 / a0, b2 / a0};
}

uint64_t bits(double value) { return std::bit_cast<uint64_t>(value); }

}  // namespace

// The low shelf, and with `side` -1 the high shelf: the cookbook's two sets
// differ only in the signs of the cosine terms.
ReferenceCoefficients referenceShelf(double sampleRate, double frequency, double gain, double slope,
                                     double side) {
    Angle w(sampleRate, frequency);
    double A = std::sqrt(gain), c = side * w.c, alpha = shelfAlpha(w, A, slope);
    double sqrtA = std::sqrt(A);
    return normalize((A + 1) + (A - 1) * c + 2 * sqrtA * alpha,
                     -2 * side * ((A - 1) + (A + 1) * c),
                     (A + 1) + (A - 1) * c - 2 * sqrtA * alpha,
                     A * ((A + 1) - (A - 1) * c + 2 * sqrtA * alpha),
                     2 * side * A * ((A - 1) - (A + 1) * c),
                     A * ((A + 1) - (A - 1) * c - 2 * sqrtA * alpha));
}

ReferenceCoefficients referenceLowShelf(double sampleRate, double frequency, double gain,
                                        double slope) {
    return referenceShelf(sampleRate, frequency, gain, slope, 1.0);
}

ReferenceCoefficients referenceHighShelf(double sampleRate, double frequency, double gain,
                                         double slope) {
    return referenceShelf(sampleRate, frequency, gain, slope, -1.0);
}

ReferenceCoefficients referencePeaking(double sampleRate, double frequency, double gain,
                                       double octaves, bool alphaTimesA) {
    Angle w(sampleRate, frequency);
    double A = std::sqrt(gain), alpha = octaveAlpha(w, octaves);
    if (alphaTimesA) alpha = alpha * A;
    return normalize(1 + alpha / A, -2 * w.c, 1 - alpha / A, 1 + alpha * A, -2 * w.c,
                     1 - alpha * A);
}

ReferenceCoefficients referenceFilter(int32_t type, double sampleRate, double frequency,
                                      double octaves) {
    Angle w(sampleRate, frequency);
    double alpha = octaveAlpha(w, octaves), c = w.c;
    double a0 = 1 + alpha, a1 = -2 * c, a2 = 1 - alpha;
    switch (type) {
        case LowPass: return normalize(a0, a1, a2, (1 - c) / 2, 1 - c, (1 - c) / 2);
        case HighPass: return normalize(a0, a1, a2, (1 + c) / 2, -(1 + c), (1 + c) / 2);
        case AllPass: return normalize(a0, a1, a2, 1 - alpha, -2 * c, 1 + alpha);
        case Notch: return normalize(a0, a1, a2, 1, -2 * c, 1);
        case BandPass: return normalize(a0, a1, a2, alpha, 0, -alpha);
        default: ADD_FAILURE() << "not a filter type: " << type; return {};
    }
}

void expectCoefficients(const EqBand& band, const ReferenceCoefficients& expected) {
    EXPECT_EQ(bits(band.a1), bits(expected.a1)) << band.a1 << " vs " << expected.a1;
    EXPECT_EQ(bits(band.a2), bits(expected.a2)) << band.a2 << " vs " << expected.a2;
    EXPECT_EQ(bits(band.b0), bits(expected.b0)) << band.b0 << " vs " << expected.b0;
    EXPECT_EQ(bits(band.b1), bits(expected.b1)) << band.b1 << " vs " << expected.b1;
    EXPECT_EQ(bits(band.b2), bits(expected.b2)) << band.b2 << " vs " << expected.b2;
}

void expectSameSamples(const std::vector<double>& actual, const std::vector<double>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i)
        ASSERT_EQ(bits(actual[i]), bits(expected[i]))
            << "sample " << i << ": " << actual[i] << " instead of " << expected[i];
}

double responseDb(const EqBand& band, double frequency) {
    std::complex<double> z = std::polar(1.0, -2 * kPi * frequency / band.sampleRate);
    std::complex<double> numerator = band.b0 + band.b1 * z + band.b2 * z * z;
    std::complex<double> denominator = 1.0 + band.a1 * z + band.a2 * z * z;
    return 20 * std::log10(std::abs(numerator / denominator));
}
