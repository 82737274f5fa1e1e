// What the stand-in host serves an effect: answers and records of its
// callback, its configuration variable, and its packed real FFT checked
// against a direct DFT computed here.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "contracts/host_extensions.h"
#include "host/extensions/config_variables.h"
#include "host/extensions/real_fft.h"
#include "host/vst/host_callback.h"

namespace {

// Calls from an effect the host has no session for.
class UnattributedHostCall : public testing::Test {
protected:
    void SetUp() override { clearUnattributedHostCalls(); }
    void TearDown() override { clearUnattributedHostCalls(); }
    intptr_t call(int32_t opcode, int32_t index = 0, void* ptr = nullptr, float opt = 0.0f) {
        return ombroHostCallback(nullptr, opcode, index, 0, ptr, opt);
    }
};

TEST_F(UnattributedHostCall, AnswersWhatAnEffectAsksAndRecordsItsRequestsInOrder) {
    EXPECT_EQ(call(audioMasterVersion), 2400);
    EXPECT_EQ(call(audioMasterGetSampleRate), 44100);
    EXPECT_EQ(call(audioMasterGetBlockSize), 512);
    char startStop[] = "startStopProcess", events[] = "sendVstEvents";
    EXPECT_EQ(call(audioMasterCanDo, 0, startStop), 1);
    EXPECT_EQ(call(audioMasterCanDo, 0, events), 0);
    EXPECT_EQ(call(12345, -1, nullptr, 1.0f), 0);
    clearUnattributedHostCalls();

    char name[] = "QIT_fft_permute", unknown[] = "NO_SUCH_FUNCTION";
    EXPECT_EQ(call(kHostExtensionOpcode, kHostExtensionIndex, name),
              reinterpret_cast<intptr_t>(&fftPermute));
    EXPECT_EQ(call(kHostExtensionOpcode, kHostExtensionIndex, unknown), 0);
    ParamListChange change{9, 3};
    call(audioMasterAutomate, 7, nullptr, 0.75f);
    EXPECT_EQ(call(audioMasterVendorSpecific, kHostExtensionOpcode, &change), 1);
    EXPECT_EQ(call(audioMasterVendorSpecific, 5), 0);

    auto calls = unattributedHostCalls();
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_TRUE(calls[0].isExtensionRequest());
    EXPECT_EQ(calls[0].text, "QIT_fft_permute");
    EXPECT_EQ(calls[2].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[2].index, 7);
    EXPECT_FLOAT_EQ(calls[2].opt, 0.75f);
    ASSERT_TRUE(calls[3].paramListChange.has_value());
    EXPECT_EQ(calls[3].paramListChange->first, 9);
    EXPECT_EQ(calls[3].paramListChange->delta, 3);
    EXPECT_FALSE(calls[4].paramListChange.has_value());
}

TEST(ConfigVariable, OctaveOffsetIsAFourByteIntegerFollowingTheHost) {
    int size = 0;
    auto* offset = static_cast<int32_t*>(findConfigVariable("midioctoffs", &size));
    ASSERT_NE(offset, nullptr);
    EXPECT_EQ(size, 4);
    setMidiOctaveOffset(-1);
    EXPECT_EQ(*offset, -1);
    setMidiOctaveOffset(0);
    EXPECT_EQ(findConfigVariable("midioctoffs", nullptr), offset);  // the size may be skipped
    EXPECT_EQ(findConfigVariable("midioctoffset", &size), nullptr);
    EXPECT_EQ(size, 0);
}

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
    fftReal8(buffer.data(), length, 1);  // the inverse, scaled by the length
    for (int n = 0; n < length; ++n)
        EXPECT_NEAR(buffer[n], signal[n] * length, tolerance) << "sample " << n;
}

INSTANTIATE_TEST_SUITE_P(PowersOfTwo, PackedForwardTransform, testing::Values(2, 4, 8, 64, 2048));

TEST(PairPermutation, ReversesTheBitsOfTheBinIndexModuloTheSize) {
    const int expected[8] = {0, 4, 2, 6, 1, 5, 3, 7};
    for (int bin = 0; bin < 8; ++bin) EXPECT_EQ(fftPermute(8, bin), expected[bin]) << bin;
    EXPECT_EQ(fftPermute(1024, 3), 768);
    EXPECT_EQ(fftPermute(1024, 1024), 0);  // the Nyquist bin's index wraps to pair 0
}

}  // namespace
