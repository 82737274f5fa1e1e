// A fresh instance as a host first sees it: identity, names, capabilities and
// the parameters of the default band set.
#include <gtest/gtest.h>

#include "plugin_under_test.h"

namespace {

using FreshInstance = SingleInstanceTest;

TEST_F(FreshInstance, IdentifiesAndNamesItself) {
    const AEffect& effect = *session_->effect();
    EXPECT_EQ(effect.magic, 0x56737450);
    EXPECT_EQ(effect.uniqueID, 0x6F6D6272);
    EXPECT_EQ(effect.version, 1100);
    EXPECT_EQ(effect.flags, 0x1031);
    EXPECT_EQ(effect.numPrograms, 1);
    EXPECT_EQ(effect.numInputs, 2);
    EXPECT_EQ(effect.numOutputs, 2);
    EXPECT_EQ(effect.numParams, 12);
    EXPECT_EQ(effect.initialDelay, 0);
    EXPECT_NE(effect.processDoubleReplacing, nullptr);
    EXPECT_NE(effect.processReplacing, nullptr);
    EXPECT_EQ(session_->effectName(), "Ombro");
    EXPECT_EQ(session_->vendorName(), "Pellix");
    EXPECT_EQ(session_->productName(), "Ombro");
    EXPECT_EQ(session_->dispatch(effGetEffectName, 0, 0, nullptr), 0);
    EXPECT_EQ(session_->dispatch(effIdentify), 0x4E764566);
    EXPECT_EQ(session_->dispatch(effGetPlugCategory), 1);
}

TEST_F(FreshInstance, AnswersOnlyItsPrivateCapabilities) {
    for (const char* own : {"hasPellixExtensions", "hasPellixViewAsConfig", "hasPellixNoScrollUI"})
        EXPECT_EQ(session_->dispatch(effCanDo, 0, 0, const_cast<char*>(own)), 0xBEEF0000) << own;
    for (const char* other : {"receiveVstEvents", "sendVstEvents", "bypass", "hasPellix", ""})
        EXPECT_EQ(session_->dispatch(effCanDo, 0, 0, const_cast<char*>(other)), 0) << other;
    EXPECT_EQ(session_->dispatch(effCanDo, 0, 0, nullptr), 0);
}

TEST_F(FreshInstance, ProgramNameIsEmpty) {
    for (int32_t opcode : {effGetProgramName, effGetProgramNameIndexed}) {
        char name[64] = "leftover";
        EXPECT_EQ(session_->dispatch(opcode, 0, 0, name), 0) << opcode;
        EXPECT_STREQ(name, "") << opcode;
    }
}

TEST_F(FreshInstance, DescribesAndAutomatesEachDefaultParameter) {
    const char* labels[3] = {"Hz", "dB", ""};  // bandwidth carries no unit
    const char* displays[12] = {"100.0",  "0.0", "2.00", "300.0",  "0.0", "2.00",
                                "1000.0", "0.0", "2.00", "5000.0", "0.0", "2.00"};
    for (int32_t index = 0; index < 12; ++index) {
        SCOPED_TRACE(index);
        EXPECT_EQ(session_->parameterName(index), kDefaultParameterNames[index]);
        EXPECT_EQ(session_->parameterLabel(index), labels[index % 3]);
        EXPECT_EQ(session_->parameterDisplay(index), displays[index]);
        EXPECT_EQ(session_->dispatch(effCanBeAutomated, index), 1);
    }
    EXPECT_EQ(session_->dispatch(effCanBeAutomated, 12), 0);
    EXPECT_EQ(session_->dispatch(effCanBeAutomated, -1), 0);
}

}  // namespace
