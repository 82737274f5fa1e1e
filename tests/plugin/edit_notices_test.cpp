// The notices the editor sends the host for its own changes, and the shared
// formatting helpers.
#include <gtest/gtest.h>

#include <vector>

#include "engine/default_bands.h"
#include "plugin/host_imports.h"
#include "plugin/host_notices.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"
#include "tests/engine/test_instance.h"

namespace {

struct Notice {
    int32_t opcode, index;
    float opt;
    bool operator==(const Notice&) const = default;
};

std::vector<Notice> notices;
HWND focusedWindow = nullptr;

intptr_t recordingHost(AEffect*, int32_t opcode, int32_t index, intptr_t, void*, float opt) {
    notices.push_back({opcode, index, opt});
    return 0;
}

class EditNotices : public ::testing::Test {
protected:
    void SetUp() override {
        notices.clear();
        processHostCallback = recordingHost;
        kobal::GetFocus = [] { return focusedWindow; };
        instance = makeTestInstance();
        ASSERT_TRUE(loadDefaultBands(instance.get()));
    }
    void TearDown() override { processHostCallback = nullptr; }
    InstancePtr instance;
};

TEST_F(EditNotices, RepeatedTouchOpensOneGesture) {
    touchParameter(instance.get(), 4);
    touchParameter(instance.get(), 4);
    std::vector<Notice> expected = {{audioMasterBeginEdit, 4, 0.0f},
                                    {audioMasterAutomate, 4, 0.25f},
                                    {audioMasterAutomate, 4, 0.25f}};
    EXPECT_EQ(notices, expected);
    EXPECT_EQ(instance->gestureParam, 4);
}

TEST_F(EditNotices, TouchingAnotherParameterEndsTheOpenGestureFirst) {
    touchParameter(instance.get(), 4);
    notices.clear();
    touchParameter(instance.get(), 7);
    std::vector<Notice> expected = {{audioMasterEndEdit, 4, 0.0f},
                                    {audioMasterBeginEdit, 7, 0.0f},
                                    {audioMasterAutomate, 7, 0.25f}};
    EXPECT_EQ(notices, expected);
}

TEST_F(EditNotices, StructuralChangeEndsTheGestureAndAutomatesMinusOne) {
    touchParameter(instance.get(), 6);
    notices.clear();
    touchParameter(instance.get(), -1);
    std::vector<Notice> expected = {{audioMasterEndEdit, 6, 0.0f}, {audioMasterAutomate, -1, 0.0f}};
    EXPECT_EQ(notices, expected);
    EXPECT_EQ(instance->gestureParam, -1);
    EXPECT_EQ(instance->gestureWindow, nullptr);
}

TEST_F(EditNotices, GestureEndsOnlyOnceTheFocusMoves) {
    auto* panel = reinterpret_cast<HWND>(0x1000);
    focusedWindow = panel;
    touchParameter(instance.get(), 1);
    notices.clear();
    endEditGesture(instance.get(), true);
    EXPECT_TRUE(notices.empty());
    focusedWindow = nullptr;
    endEditGesture(instance.get(), true);
    EXPECT_EQ(notices, (std::vector<Notice>{{audioMasterEndEdit, 1, 0.0f}}));
    EXPECT_EQ(instance->gestureParam, -1);
}

TEST_F(EditNotices, ReportSendsValueOrEndWithoutClosingTheGesture) {
    touchParameter(instance.get(), 2);
    notices.clear();
    reportParameter(instance.get(), 2, false);
    reportParameter(instance.get(), 2, true);
    reportParameter(instance.get(), 99, false);
    std::vector<Notice> expected = {{audioMasterAutomate, 2, 0.5f},
                                    {audioMasterEndEdit, 2, 0.0f},
                                    {audioMasterAutomate, 99, 0.0f}};
    EXPECT_EQ(notices, expected);
    EXPECT_EQ(instance->gestureParam, 2);
}

TEST_F(EditNotices, NoHostCallbackMeansNoNotices) {
    processHostCallback = nullptr;
    touchParameter(instance.get(), 3);
    reportParameter(instance.get(), 3, false);
    notifyHostChanged(instance.get());
    EXPECT_TRUE(notices.empty());
}

TEST(NoteNames, OctavesChangeBetweenBAndC) {
    char text[16];
    midiOctaveOffset = nullptr;
    noteName(text, 440.0);
    EXPECT_STREQ(text, "A3");
    noteName(text, 466.16);
    EXPECT_STREQ(text, "A#3");
    noteName(text, 493.88);
    EXPECT_STREQ(text, "B3");
    noteName(text, 523.25);
    EXPECT_STREQ(text, "C4");
    noteName(text, 15.0);
    EXPECT_STREQ(text, "");
    noteName(text, 0.0);
    EXPECT_STREQ(text, "");
    noteName(text, 880.0 * 0.98);  // 35 cents flat of A4 rounds to A4
    EXPECT_STREQ(text, "A4");
}

TEST(NoteNames, FollowTheHostOctaveOffsetOnEveryCall) {
    int32_t offset = 1;
    midiOctaveOffset = &offset;
    char text[16];
    noteName(text, 440.0);
    EXPECT_STREQ(text, "A4");
    offset = -2;
    noteName(text, 440.0);
    EXPECT_STREQ(text, "A1");
    midiOctaveOffset = nullptr;
}

TEST(AmplitudeToDecibels, FloorAndUnity) {
    EXPECT_EQ(ampToDb(0.0), -150.0);
    EXPECT_EQ(ampToDb(1.0), 0.0);
    EXPECT_NEAR(ampToDb(2.0), 6.0206, 1e-4);
    EXPECT_EQ(ampToDb(1e-9), -150.0);
}

}  // namespace
