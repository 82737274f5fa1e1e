// What the host callback answers and records, called directly as an effect
// would call it, for an effect the host has no session for.
#include <gtest/gtest.h>

#include <cstring>

#include "contracts/host_extensions.h"
#include "contracts/vst2.h"
#include "host/extensions/extension_table.h"
#include "host/vst/host_callback.h"

namespace {

class UnattributedHostCall : public testing::Test {
protected:
    void SetUp() override { clearUnattributedHostCalls(); }
    void TearDown() override { clearUnattributedHostCalls(); }

    // A call from an effect the host has no session for.
    intptr_t fromStranger(int32_t opcode, int32_t index = 0, void* ptr = nullptr,
                          float opt = 0.0f) {
        return ombroHostCallback(&strangerEffect_, opcode, index, 0, ptr, opt);
    }
    AEffect strangerEffect_{};  // never registered with a session
};

TEST_F(UnattributedHostCall, AnswersVersionDefaultStreamSettingsAndItsTexts) {
    EXPECT_EQ(fromStranger(audioMasterVersion), 2400);
    EXPECT_EQ(fromStranger(audioMasterGetSampleRate), 44100);
    EXPECT_EQ(fromStranger(audioMasterGetBlockSize), 512);
    char text[64];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(ombroHostCallback(nullptr, audioMasterGetVendorString, 0, 0, text, 0.0f), 1);
    EXPECT_STREQ(text, "Pellix");
    EXPECT_EQ(ombroHostCallback(nullptr, audioMasterGetProductString, 0, 0, text, 0.0f), 1);
    EXPECT_STREQ(text, "Ombro Host");
    EXPECT_EQ(ombroHostCallback(nullptr, audioMasterGetProductString, 0, 0, nullptr, 0.0f), 0);
}

TEST_F(UnattributedHostCall, AnswersCapabilitiesItHasOnly) {
    char startStop[] = "startStopProcess";
    char events[] = "sendVstEvents";
    EXPECT_EQ(ombroHostCallback(nullptr, audioMasterCanDo, 0, 0, startStop, 0.0f), 1);
    EXPECT_EQ(ombroHostCallback(nullptr, audioMasterCanDo, 0, 0, events, 0.0f), 0);
    EXPECT_EQ(ombroHostCallback(nullptr, audioMasterCanDo, 0, 0, nullptr, 0.0f), 0);
    auto calls = unattributedHostCalls();
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[0].text, "startStopProcess");
    EXPECT_EQ(calls[1].text, "sendVstEvents");
    EXPECT_EQ(calls[2].text, "");
}

TEST_F(UnattributedHostCall, ServesExtensionRequestsByName) {
    char name[] = "QIT_fft_permute";
    intptr_t answer = ombroHostCallback(nullptr, kHostExtensionOpcode, kHostExtensionIndex, 0,
                                        name, 0.0f);
    EXPECT_EQ(answer, reinterpret_cast<intptr_t>(findHostExtension("QIT_fft_permute")));
    char unknown[] = "NO_SUCH_FUNCTION";
    EXPECT_EQ(ombroHostCallback(nullptr, kHostExtensionOpcode, kHostExtensionIndex, 0, unknown,
                                0.0f),
              0);
    // The private opcode with another index is no extension request.
    EXPECT_EQ(ombroHostCallback(nullptr, kHostExtensionOpcode, 0, 0, name, 0.0f), 0);

    auto calls = unattributedHostCalls();
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_TRUE(calls[0].effectWasNull);
    EXPECT_TRUE(calls[0].isExtensionRequest());
    EXPECT_EQ(calls[0].text, "QIT_fft_permute");
    EXPECT_EQ(calls[0].answer, answer);
    EXPECT_EQ(calls[1].answer, 0);
    EXPECT_FALSE(calls[2].isExtensionRequest());
}

TEST_F(UnattributedHostCall, RecordsNoticesInOrderWithTheirArguments) {
    ParamListChange change{9, 3};
    fromStranger(audioMasterBeginEdit, 7);
    fromStranger(audioMasterAutomate, 7, nullptr, 0.75f);
    fromStranger(audioMasterEndEdit, 7);
    EXPECT_EQ(fromStranger(audioMasterVendorSpecific, kHostExtensionOpcode, &change), 1);
    fromStranger(audioMasterVendorSpecific, 5);

    auto calls = unattributedHostCalls();
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[0].opcode, audioMasterBeginEdit);
    EXPECT_EQ(calls[1].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[1].index, 7);
    EXPECT_FLOAT_EQ(calls[1].opt, 0.75f);
    EXPECT_EQ(calls[2].opcode, audioMasterEndEdit);
    ASSERT_TRUE(calls[3].paramListChange.has_value());
    EXPECT_EQ(calls[3].paramListChange->first, 9);
    EXPECT_EQ(calls[3].paramListChange->delta, 3);
    EXPECT_FALSE(calls[4].paramListChange.has_value());
    EXPECT_FALSE(calls[0].effectWasNull);
}

TEST_F(UnattributedHostCall, AnswersZeroToUnknownOpcodes) {
    EXPECT_EQ(ombroHostCallback(nullptr, 12345, -1, -1, nullptr, 1.0f), 0);
    EXPECT_EQ(ombroHostCallback(nullptr, -7, 0, 0, nullptr, 0.0f), 0);
    EXPECT_EQ(unattributedHostCalls().size(), 2u);
}

}  // namespace
