// The analyzers' capture ring, window, levels and smoothing, with the host's
// FFT replaced by a plain DFT that packs its result the documented way.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <memory>
#include <vector>

#include "engine/live_analyzer.h"
#include "plugin/host_imports.h"
#include "tests/engine/test_instance.h"

namespace {

constexpr int kRing = 2048;  // the only length the analyzer transforms
const double kPi = 3.141592653589793;

// Bins lie at bit-reversed pair indices, so a reader that skips the permutation reads noise.
int bitReversedPair(int transformSize, int index) {
    int reversed = 0;
    for (int bit = 1; bit < transformSize; bit <<= 1) reversed = reversed << 1 | ((index & bit) != 0);
    return reversed;
}

std::complex<double> dftBin(const std::vector<double>& x, int bin) {
    static const std::vector<std::complex<double>> twiddles = [] {
        std::vector<std::complex<double>> values;
        for (int k = 0; k < kRing; ++k) values.push_back(std::polar(1.0, -2 * kPi * k / kRing));
        return values;
    }();
    std::complex<double> sum = 0.0;
    for (int n = 0; n < kRing; ++n) sum += x[n] * twiddles[bin * n % kRing];
    return sum;
}

// Forward only: pair 0 = (DC, Nyquist), complex bin k at pair bitReversedPair(length/2, k).
void packedDft(double* buffer, int length, int) {
    ASSERT_EQ(length, kRing);
    std::vector<double> x(buffer, buffer + length);
    buffer[0] = dftBin(x, 0).real();
    buffer[1] = dftBin(x, kRing / 2).real();
    for (int k = 1; k < kRing / 2; ++k) {
        std::complex<double> value = dftBin(x, k);
        int pair = bitReversedPair(kRing / 2, k);
        buffer[2 * pair] = value.real();
        buffer[2 * pair + 1] = value.imag();
    }
}

// Levels in dB of bins 1..1024 of the last 2048 samples under a Blackman
// window whose halves each sum to one half.
std::vector<double> expectedLevels(const std::vector<double>& lastSamples) {
    std::vector<double> w(1024), windowed(kRing), levels;
    double sum = 0.0;
    for (int k = 0; k < 1024; ++k) {
        w[k] = 0.42 - 0.5 * std::cos(k * kPi / 1024) + 0.08 * std::cos(2 * k * kPi / 1024);
        sum += w[k];
    }
    for (int k = 0; k < kRing; ++k)
        windowed[k] = lastSamples[k] * (k < 1024 ? w[k] : w[2047 - k]) * 0.5 / sum;
    for (int bin = 1; bin <= 1024; ++bin) {
        double power = std::norm(dftBin(windowed, bin));
        levels.push_back(power < 8.88e-16 ? -150.0 : 10 * std::log10(power));
    }
    return levels;
}

std::vector<double> tone(int count, double binFrequency, double amplitude) {
    std::vector<double> samples(count);
    for (int n = 0; n < count; ++n)
        samples[n] = amplitude * std::sin(2 * kPi * binFrequency * n / kRing + 0.3);
    return samples;
}

struct SpectrumTest : ::testing::Test {
    std::unique_ptr<SpectrumAnalyzer> analyzer = std::make_unique<SpectrumAnalyzer>();

    void SetUp() override {
        hostExtensions.fftReal8 = packedDft;
        hostExtensions.fftPermute = bitReversedPair;
        useFakeTickCount();
        clearSpectrumAnalyzer(*analyzer);
    }
    void capture(const std::vector<double>& left, const std::vector<double>& right) {
        captureSpectrum(*analyzer, left.data(), right.data(), static_cast<int32_t>(left.size()));
    }
    double updateAt(uint32_t tick, int bin) {
        fakeTickNow = tick;
        return updateSpectrum(*analyzer)[bin - 1];
    }
};

}  // namespace

// The channels are averaged into the ring; the first update shows the levels
// of the last 2048 samples, oldest first.
TEST_F(SpectrumTest, FirstUpdateShowsTheLevelsOfTheWindowedRing) {
    std::vector<double> left = tone(kRing + 300, 64.0, 0.5), right(kRing + 300), mono;
    for (int n = 0; n < kRing + 300; ++n) {
        right[n] = 0.2 * std::sin(n * 0.9);
        mono.push_back((left[n] + right[n]) * 0.5);
    }
    capture(left, right);
    fakeTickNow = 10000;
    const double* levels = updateSpectrum(*analyzer);
    std::vector<double> expected = expectedLevels(std::vector<double>(mono.end() - kRing, mono.end()));
    for (int j = 0; j < 1024; ++j) ASSERT_NEAR(levels[j], expected[j], 1e-9) << "bin " << j + 1;
}

// Levels fall with a time constant of 227 ms and rise to 90% in about 52 ms;
// without new data they hold, after a long pause they jump.
TEST_F(SpectrumTest, LevelsFallAndRiseAtTheirRates) {
    std::vector<double> silence(kRing, 0.0), loud = tone(kRing, 100.0, 1.0);
    capture(loud, loud);
    double start = updateAt(5000, 100), level = start;
    EXPECT_EQ(updateAt(5005, 100), start);
    for (uint32_t t = 5010; t <= 5230; t += 10) {
        capture(silence, silence);
        level = updateAt(t, 100);
    }
    EXPECT_NEAR((level + 150.0) / (start + 150.0), std::exp(-230.0 / 227.27), 1e-4);

    capture(silence, silence);
    ASSERT_EQ(updateAt(20000, 100), -150.0);
    std::vector<double> progress;
    for (uint32_t t = 20004; t <= 20060; t += 4) {
        capture(loud, loud);
        progress.push_back((updateAt(t, 100) + 150.0) / (start + 150.0));
    }
    EXPECT_LT(progress[11], 0.9);           // 48 ms
    EXPECT_NEAR(progress[12], 0.9, 0.005);  // 52 ms
    EXPECT_GT(progress[13], 0.9);           // 56 ms
}
