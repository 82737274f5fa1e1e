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

constexpr int kRing = 2048;
const double kPi = 3.141592653589793;

// Bins lie at bit-reversed pair indices, so a reader that skips the permutation reads noise.
int bitReversedPair(int transformSize, int index) {
    int reversed = 0;
    for (int bit = 1; bit < transformSize; bit <<= 1) {
        reversed <<= 1;
        if (index & bit) reversed |= 1;
    }
    return reversed;
}

// e^(-2 pi i k / 2048), the only length the analyzer transforms.
const std::vector<std::complex<double>>& twiddles() {
    static const std::vector<std::complex<double>> table = [] {
        std::vector<std::complex<double>> values(kRing);
        for (int k = 0; k < kRing; ++k) values[k] = std::polar(1.0, -2 * kPi * k / kRing);
        return values;
    }();
    return table;
}

std::complex<double> dftBin(const double* x, int length, int bin) {
    EXPECT_EQ(length, kRing);
    const auto& w = twiddles();
    std::complex<double> sum = 0.0;
    for (int n = 0; n < kRing; ++n) sum += x[n] * w[bin * n % kRing];
    return sum;
}

// Forward only: pair 0 = (DC, Nyquist), complex bin k at pair bitReversedPair(length/2, k).
void packedDft(double* buffer, int length, int) {
    std::vector<double> x(buffer, buffer + length);
    buffer[0] = dftBin(x.data(), length, 0).real();
    buffer[1] = dftBin(x.data(), length, length / 2).real();
    for (int k = 1; k < length / 2; ++k) {
        std::complex<double> value = dftBin(x.data(), length, k);
        int pair = bitReversedPair(length / 2, k);
        buffer[2 * pair] = value.real();
        buffer[2 * pair + 1] = value.imag();
    }
}

std::vector<double> halfBlackman() {
    std::vector<double> w(1024);
    double theta = 0.0, sum = 0.0;
    for (double& value : w) {
        value = 0.42 - 0.5 * std::cos(theta) + 0.08 * std::cos(2 * theta);
        sum += value;
        theta += kPi / 1024;
    }
    for (double& value : w) value *= 0.5 / sum;
    return w;
}

// Levels in dB of bins 1..1024 of the last 2048 samples under the window.
std::vector<double> expectedLevels(const std::vector<double>& lastSamples) {
    std::vector<double> w = halfBlackman(), windowed(kRing);
    for (int k = 0; k < kRing; ++k) windowed[k] = lastSamples[k] * (k < 1024 ? w[k] : w[2047 - k]);
    std::vector<double> levels;
    for (int bin = 1; bin <= 1024; ++bin) {
        double power = std::norm(dftBin(windowed.data(), kRing, bin));
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
    void capture(const std::vector<double>& mono) {
        captureSpectrum(*analyzer, mono.data(), mono.data(), static_cast<int32_t>(mono.size()));
    }
    double updateAt(uint32_t tick, int bin) {
        fakeTickNow = tick;
        return updateSpectrum(*analyzer)[bin - 1];
    }
};

}  // namespace

TEST_F(SpectrumTest, FirstUpdateShowsTheLevelsOfTheWindowedRingOldestFirst) {
    std::vector<double> signal = tone(kRing + 300, 64.0, 0.5);
    for (int n = 0; n < kRing + 300; ++n) signal[n] += 0.1 * std::sin(n * 0.9);
    capture(signal);
    fakeTickNow = 10000;
    const double* levels = updateSpectrum(*analyzer);
    std::vector<double> expected =
        expectedLevels(std::vector<double>(signal.end() - kRing, signal.end()));
    for (int j = 0; j < 1024; ++j) ASSERT_NEAR(levels[j], expected[j], 1e-9) << "bin " << j + 1;
    EXPECT_EQ(analyzer->hasNewData, 0);
    EXPECT_EQ(analyzer->lastUpdateTick, 10000u);
}

// Levels fall with a time constant of 227 ms and rise to 90% in about 52 ms.
TEST_F(SpectrumTest, LevelsFallAndRiseAtTheirRates) {
    std::vector<double> silence(kRing, 0.0), loud = tone(kRing, 100.0, 1.0);
    capture(loud);
    double start = updateAt(5000, 100), level = start;
    for (uint32_t t = 5010; t <= 5230; t += 10) {
        capture(silence);
        level = updateAt(t, 100);
    }
    EXPECT_NEAR((level + 150.0) / (start + 150.0), std::exp(-230.0 / 227.27), 1e-4);

    capture(silence);
    ASSERT_EQ(updateAt(20000, 100), -150.0);  // after a long pause levels jump
    std::vector<double> progress;
    for (uint32_t t = 20004; t <= 20060; t += 4) {
        capture(loud);
        progress.push_back((updateAt(t, 100) + 150.0) / (start + 150.0));
    }
    EXPECT_LT(progress[11], 0.9);           // 48 ms
    EXPECT_NEAR(progress[12], 0.9, 0.005);  // 52 ms
    EXPECT_GT(progress[13], 0.9);           // 56 ms
}

// Without new data nothing moves; when the clock goes backwards levels jump.
TEST_F(SpectrumTest, StaleDataHoldsAndABackwardClockJumps) {
    std::vector<double> loud = tone(kRing, 50.0, 1.0), quiet = tone(kRing, 50.0, 0.001);
    capture(loud);
    double loudLevel = updateAt(10000, 50);
    EXPECT_EQ(updateAt(10100, 50), loudLevel);
    EXPECT_EQ(analyzer->lastUpdateTick, 10000u);
    capture(quiet);
    EXPECT_NEAR(loudLevel - updateAt(9000, 50), 60.0, 1e-6);
}
