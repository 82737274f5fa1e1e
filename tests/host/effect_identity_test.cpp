// A fresh instance as a host first sees it: identity, names, capabilities and
// the parameters of the default band set.
#include <gtest/gtest.h>

#include <cstring>

#include "plugin_under_test.h"

namespace {

class FreshInstance : public SingleInstanceTest {};

TEST_F(FreshInstance, IdentifiesItselfInItsEffectRecord) {
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
}

TEST_F(FreshInstance, NamesItselfAndItsVendor) {
    EXPECT_EQ(session_->effectName(), "Ombro");
    EXPECT_EQ(session_->vendorName(), "Pellix");
    EXPECT_EQ(session_->productName(), "Ombro");
    EXPECT_EQ(session_->dispatch(effGetEffectName, 0, 0, nullptr), 0);
    EXPECT_EQ(session_->dispatch(effIdentify), 0x4E764566);
    EXPECT_EQ(session_->dispatch(effGetPlugCategory), 1);
}

TEST_F(FreshInstance, AnswersOnlyItsPrivateCapabilities) {
    char capability[64] = "hasPellixExtensions";
    EXPECT_EQ(session_->dispatch(effCanDo, 0, 0, capability), 0xBEEF0000);
    for (const char* own : {"hasPellixViewAsConfig", "hasPellixNoScrollUI"})
        EXPECT_EQ(session_->dispatch(effCanDo, 0, 0, const_cast<char*>(own)), 0xBEEF0000) << own;
    for (const char* other : {"receiveVstEvents", "sendVstEvents", "bypass", "hasPellix", ""})
        EXPECT_EQ(session_->dispatch(effCanDo, 0, 0, const_cast<char*>(other)), 0) << other;
    EXPECT_EQ(session_->dispatch(effCanDo, 0, 0, nullptr), 0);
}

TEST_F(FreshInstance, ProgramNameIsEmpty) {
    char name[64] = "leftover";
    EXPECT_EQ(session_->dispatch(effGetProgramName, 0, 0, name), 0);
    EXPECT_STREQ(name, "");
    std::strcpy(name, "leftover");
    EXPECT_EQ(session_->dispatch(effGetProgramNameIndexed, 0, 0, name), 0);
    EXPECT_STREQ(name, "");
}

TEST_F(FreshInstance, NamesEachParameterByFieldAndBand) {
    for (int32_t index = 0; index < 12; ++index)
        EXPECT_EQ(session_->parameterName(index), kDefaultParameterNames[index]) << index;
}

TEST_F(FreshInstance, LabelsFrequencyAndGainButNotBandwidth) {
    const char* labels[3] = {"Hz", "dB", ""};
    for (int32_t index = 0; index < 12; ++index)
        EXPECT_EQ(session_->parameterLabel(index), labels[index % 3]) << index;
}

TEST_F(FreshInstance, DisplaysDefaultBandValues) {
    const char* displays[12] = {"100.0",  "0.0", "2.00", "300.0",  "0.0", "2.00",
                                "1000.0", "0.0", "2.00", "5000.0", "0.0", "2.00"};
    for (int32_t index = 0; index < 12; ++index)
        EXPECT_EQ(session_->parameterDisplay(index), displays[index]) << index;
}

TEST_F(FreshInstance, CanAutomateExactlyItsParameters) {
    EXPECT_EQ(session_->dispatch(effCanBeAutomated, 0), 1);
    EXPECT_EQ(session_->dispatch(effCanBeAutomated, 11), 1);
    EXPECT_EQ(session_->dispatch(effCanBeAutomated, 12), 0);
    EXPECT_EQ(session_->dispatch(effCanBeAutomated, -1), 0);
}

}  // namespace
