// What a plain host sees of the bridge; no private request reaches it.
#include "contracts/host_extensions.h"
#include "tests/bridge/plain_host.h"

TEST_F(BridgeInstanceTest, PresentsTheEqualizerWithBothProcessingEntries) {
    EXPECT_EQ(effect()->magic, kEffectMagic);
    EXPECT_EQ(effect()->uniqueID, fourCharCode('o', 'm', 'b', 'r'));
    EXPECT_EQ(effect()->version, 1100);
    EXPECT_EQ(effect()->flags, effFlagsHasEditor | effFlagsCanReplacing | effFlagsProgramChunks |
                                   effFlagsCanDoubleReplacing);
    EXPECT_EQ(effect()->numPrograms, 1);
    EXPECT_EQ(effect()->numInputs, 2);
    EXPECT_EQ(effect()->numOutputs, 2);
    EXPECT_EQ(effect()->numParams, kDefaultParameterCount);
    ERect* rect = nullptr;
    ASSERT_EQ(hosted_->dispatch(effEditGetRect, 0, 0, &rect), 1);
    EXPECT_EQ(rect->right - rect->left, 1020);
    EXPECT_EQ(rect->bottom - rect->top, 640);
    for (const PlainHostCall& call : plainHostCalls()) EXPECT_NE(call.opcode, kHostExtensionOpcode);
}

TEST_F(BridgeInstanceTest, PassesDispatcherRequestsThrough) {
    for (auto [opcode, expected] : {std::pair{effGetEffectName, "Ombro"}, {effGetVendorString, "Pellix"},
                                    {effGetProductString, "Ombro"}, {effGetProgramName, ""}})
        EXPECT_EQ(hosted_->text(opcode), expected) << opcode;
    char extensions[] = "hasPellixExtensions";
    char events[] = "receiveVstEvents";
    EXPECT_EQ(hosted_->dispatch(effCanDo, 0, 0, extensions), kPrivateCanDoAnswer);
    EXPECT_EQ(hosted_->dispatch(effCanDo, 0, 0, events), 0);
    EXPECT_EQ(hosted_->dispatch(effGetPlugCategory), kPlugCategEffect);
    EXPECT_EQ(hosted_->dispatch(effIdentify), 0x4E764566);
    EXPECT_EQ(hosted_->dispatch(effCanBeAutomated, kDefaultParameterCount - 1), 1);
    EXPECT_EQ(hosted_->dispatch(effCanBeAutomated, kDefaultParameterCount), 0);
}
