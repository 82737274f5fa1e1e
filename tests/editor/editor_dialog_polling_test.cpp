// The editor's 40 ms poll: outside changes show only when it fires, the
// hover readout ends when the pointer leaves the graph, and a spectrum that
// went quiet is drawn once more.
#include <string>

#include "editor/band_panel_controls.h"
#include "editor/editor_controls.h"
#include "engine/band_list.h"
#include "host/ui/input_injection.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

class EditorPollingTest : public OpenEditorTest {
protected:
    void SetUp() override {
        OpenEditorTest::SetUp();
        advanceClock(40);  // a first poll, so the next one is a whole period away
        clearNotices();
    }
};

TEST_F(EditorPollingTest, AutomationShowsInTheControlsOnlyWhenTheTimerFires) {
    ASSERT_EQ(text(panelControl(kGainEdit)), "0.0");
    setParameter(&instance->effect, 1, 0.5f);  // band 0 gain 2.0
    EXPECT_EQ(snapshotBand(instance, 0).gain, 2.0);
    EXPECT_EQ(instance->refreshRequested, 1);
    EXPECT_EQ(text(panelControl(kGainEdit)), "0.0");
    advanceClock(39);
    EXPECT_EQ(text(panelControl(kGainEdit)), "0.0");
    advanceClock(1);
    EXPECT_EQ(text(panelControl(kGainEdit)), "6.0");
    EXPECT_EQ(instance->refreshRequested, 0);
    EXPECT_TRUE(notices().empty());
}

TEST_F(EditorPollingTest, OutsideChangeOfTheBandCountRebuildsTheTabsOnTheNextPoll) {
    ASSERT_TRUE(appendBand(instance, createDesignedBand(Band, 3000.0, 1.0, 1.0,
                                                        instance->sampleRate)));
    instance->refreshRequested = 1;
    EXPECT_EQ(tabTexts().size(), 4u);
    advanceClock(40);
    EXPECT_EQ(tabTexts().size(), 5u);
}

TEST_F(EditorPollingTest, HoverStaysWhileThePointerIsOnTheGraphAndEndsOnceItIsOff) {
    kobal_layer::moveMouse(kobal_layer::screenPointOf(control(kResponseViewControl), POINT{3, 3}));
    instance->hoverBand = 2;
    instance->hoverFlags = 1;
    advanceClock(40);
    EXPECT_EQ(instance->hoverBand, 2);
    kobal_layer::moveMouse(kobal_layer::screenPointOf(control(kBandTabs), POINT{5, 5}));
    advanceClock(40);
    EXPECT_EQ(instance->hoverBand, -1);
    EXPECT_EQ(instance->hoverFlags, 0);
}

TEST_F(EditorPollingTest, QuietSpectrumIsForgottenAfterOneSecond) {
    const uint32_t now = kobal::GetTickCount();
    instance->spectrumTick = now;
    instance->spectrumDrawnTick = now;
    advanceClock(40);
    EXPECT_EQ(instance->spectrumTick.load(), now);
    advanceClock(1000);
    EXPECT_EQ(instance->spectrumTick.load(), 0u);
}

TEST_F(EditorPollingTest, ClosingTheEditorEndsTheGestureAndClearsItsState) {
    kobal_layer::typeIntoEdit(panelControl(kGainEdit), "2");
    clearNotices();
    HWND editorWindow = editor();
    kobal::DestroyWindow(editorWindow);
    EXPECT_EQ(instance->editorWindow.load(), nullptr);
    EXPECT_EQ(instance->gestureParam, -1);
    ASSERT_EQ(notices().size(), 1u);
    EXPECT_EQ(notices()[0].opcode, audioMasterEndEdit);
    EXPECT_EQ(instance->editorSizer.dialog, nullptr);
    EXPECT_EQ(instance->panelSizer.dialog, nullptr);
    setParameter(&instance->effect, 1, 0.25f);
    EXPECT_EQ(instance->refreshRequested, 0);
}

}  // namespace
