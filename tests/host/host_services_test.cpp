// What the stand-in host serves an effect: answers and records of its
// callback, its configuration variable and its fader curve.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "contracts/host_extensions.h"
#include "host/extensions/config_variables.h"
#include "host/extensions/fader_curve.h"
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

TEST_F(UnattributedHostCall, AnswersVersionStreamSettingsTextsAndCapabilities) {
    EXPECT_EQ(call(audioMasterVersion), 2400);
    EXPECT_EQ(call(audioMasterGetSampleRate), 44100);
    EXPECT_EQ(call(audioMasterGetBlockSize), 512);
    char text[64];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(call(audioMasterGetVendorString, 0, text), 1);
    EXPECT_STREQ(text, "Pellix");
    EXPECT_EQ(call(audioMasterGetProductString, 0, text), 1);
    EXPECT_STREQ(text, "Ombro Host");
    EXPECT_EQ(call(audioMasterGetProductString), 0);
    char startStop[] = "startStopProcess", events[] = "sendVstEvents";
    EXPECT_EQ(call(audioMasterCanDo, 0, startStop), 1);
    EXPECT_EQ(call(audioMasterCanDo, 0, events), 0);
    EXPECT_EQ(call(audioMasterCanDo), 0);
    EXPECT_EQ(call(12345, -1, nullptr, 1.0f), 0);
}

TEST_F(UnattributedHostCall, ServesExtensionsByNameAndRecordsNoticesInOrder) {
    char name[] = "QIT_fft_permute", unknown[] = "NO_SUCH_FUNCTION";
    EXPECT_EQ(call(kHostExtensionOpcode, kHostExtensionIndex, name),
              reinterpret_cast<intptr_t>(&fftPermute));
    EXPECT_EQ(call(kHostExtensionOpcode, kHostExtensionIndex, unknown), 0);
    EXPECT_EQ(call(kHostExtensionOpcode, 0, name), 0);  // another index is no request
    ParamListChange change{9, 3};
    call(audioMasterAutomate, 7, nullptr, 0.75f);
    EXPECT_EQ(call(audioMasterVendorSpecific, kHostExtensionOpcode, &change), 1);
    EXPECT_EQ(call(audioMasterVendorSpecific, 5), 0);

    auto calls = unattributedHostCalls();
    ASSERT_EQ(calls.size(), 6u);
    EXPECT_TRUE(calls[0].isExtensionRequest());
    EXPECT_EQ(calls[0].text, "QIT_fft_permute");
    EXPECT_FALSE(calls[2].isExtensionRequest());
    EXPECT_EQ(calls[3].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[3].index, 7);
    EXPECT_FLOAT_EQ(calls[3].opt, 0.75f);
    ASSERT_TRUE(calls[4].paramListChange.has_value());
    EXPECT_EQ(calls[4].paramListChange->first, 9);
    EXPECT_EQ(calls[4].paramListChange->delta, 3);
    EXPECT_FALSE(calls[5].paramListChange.has_value());
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

TEST(FaderCurve, InterpolatesLinearlyInDbBetweenItsPointsAndClampsBeyond) {
    const std::pair<double, double> positionsAndDb[] = {
        {0.0, -150.0}, {60.0, -105.0}, {650.0, -5.0}, {750.0, 0.0}, {875.0, 6.0}, {1000.0, 12.0}};
    for (auto [position, db] : positionsAndDb) {
        EXPECT_DOUBLE_EQ(dbOfFaderPosition(position), db) << position;
        EXPECT_DOUBLE_EQ(faderPositionOfDb(db), position) << db;
    }
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(1e6), 12.0);
    EXPECT_DOUBLE_EQ(faderPositionOfDb(-400.0), 0.0);
    EXPECT_DOUBLE_EQ(dbOfFaderPosition(std::nan("")), -150.0);
}

}  // namespace
