// The host's packed real FFT against a direct DFT computed here.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "host/extensions/real_fft.h"

namespace {

std::vector<double> testSignal(int length) {
    std::vector<double> signal(length);
    for (int n = 0; n < length; ++n)
        signal[n] = std::sin(0.37 * n) + 0.5 * std::cos(1.9 * n + 0.2) + 0.01 * (n % 7) - 0.3;
    return signal;
}

std::complex<double> directDft(const std::vector<double>& signal, int bin) {
    std::complex<double> sum = 0.0;
    double length = static_cast<double>(signal.size());
    for (size_t n = 0; n < signal.size(); ++n)
        sum += signal[n] * std::polar(1.0, -2.0 * std::numbers::pi * bin * n / length);
    return sum;
}

class PackedForwardTransform : public testing::TestWithParam<int> {};

// Bin 0 and the Nyquist bin share the first pair; bin k sits at pair fftPermute(k).
TEST_P(PackedForwardTransform, MatchesDirectDftAtPermutedPairsAndInvertsScaledByLength) {
    int length = GetParam();
    std::vector<double> signal = testSignal(length);
    std::vector<double> buffer = signal;
    fftReal8(buffer.data(), length, 0);
    double tolerance = 1e-9 * length;
    EXPECT_NEAR(buffer[0], directDft(signal, 0).real(), tolerance);
    EXPECT_NEAR(buffer[1], directDft(signal, length / 2).real(), tolerance);
    for (int bin = 1; bin < length / 2; ++bin) {
        int pair = fftPermute(length / 2, bin);
        std::complex<double> expected = directDft(signal, bin);
        EXPECT_NEAR(buffer[2 * pair], expected.real(), tolerance) << "bin " << bin;
        EXPECT_NEAR(buffer[2 * pair + 1], expected.imag(), tolerance) << "bin " << bin;
    }
    fftReal8(buffer.data(), length, 1);
    for (int n = 0; n < length; ++n)
        EXPECT_NEAR(buffer[n], signal[n] * length, tolerance) << "sample " << n;
}

INSTANTIATE_TEST_SUITE_P(PowersOfTwo, PackedForwardTransform, testing::Values(2, 4, 8, 64, 2048));

TEST(PackedTransform, LeavesBufferAloneForLengthsItCannotTransform) {
    for (int length : {0, 1, 3, 6, 100, -8}) {
        std::vector<double> buffer = testSignal(128);
        fftReal8(buffer.data(), length, 0);
        fftReal8(buffer.data(), length, 1);
        EXPECT_EQ(buffer, testSignal(128)) << "length " << length;
    }
    fftReal8(nullptr, 64, 0);  // a null buffer is ignored
}

TEST(PairPermutation, ReversesTheBitsOfTheBinIndexModuloTheSize) {
    const int expected[8] = {0, 4, 2, 6, 1, 5, 3, 7};
    for (int bin = 0; bin < 8; ++bin) EXPECT_EQ(fftPermute(8, bin), expected[bin]) << bin;
    EXPECT_EQ(fftPermute(1024, 1), 512);
    EXPECT_EQ(fftPermute(1024, 3), 768);
    EXPECT_EQ(fftPermute(1024, 1023), 1023);
    EXPECT_EQ(fftPermute(1, 0), 0);
    EXPECT_EQ(fftPermute(1024, 1024), 0);  // the Nyquist bin's index wraps to pair 0
    EXPECT_EQ(fftPermute(8, 9), 4);
    EXPECT_EQ(fftPermute(6, 5), 5);  // other sizes keep the index
    EXPECT_EQ(fftPermute(0, 3), 3);
}

}  // namespace
