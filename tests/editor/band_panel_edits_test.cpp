// Typing into the band panel's boxes: values stored unclamped, the faders
// and the note name following, the typed text left alone, and the edit
// gesture the host sees.
#include <cmath>
#include <string>

#include "editor/band_panel_controls.h"
#include "editor/editor_messages.h"
#include "editor/output_gain_display.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/input_injection.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

class BandPanelEditTest : public OpenEditorTest {
protected:
    void type(int id, const std::string& value) {
        kobal_layer::typeIntoEdit(panelControl(id), value);
    }
    int position(int id) const {
        return static_cast<int>(kobal::SendMessage(panelControl(id), TBM_GETPOS, 0, 0));
    }
    int count(int32_t opcode, int32_t index) const {
        int n = 0;
        for (const HostNotice& notice : notices())
            if (notice.opcode == opcode && notice.index == index) ++n;
        return n;
    }
};

TEST_F(BandPanelEditTest, TypedFrequencyMovesFaderAndNoteButKeepsTheTypedText) {
    type(kFrequencyEdit, "440");
    EXPECT_EQ(snapshotBand(instance, 0).frequency, 440.0);
    EXPECT_EQ(text(panelControl(kFrequencyEdit)), "440");
    EXPECT_EQ(text(panelControl(kNoteNameBox)), "A3");
    const double axis = std::log(1.0 + 400.0 * (440.0 - 20.0) / 23980.0) / std::log(401.0);
    EXPECT_EQ(position(kFrequencyFader), static_cast<int>(axis * 1000.0));
}

TEST_F(BandPanelEditTest, TypedBandwidthBeyondTheFaderIsStoredAsTypedAndGainIsDecibels) {
    type(kBandwidthEdit, "6");
    EXPECT_EQ(snapshotBand(instance, 0).bandwidth, 6.0);
    EXPECT_EQ(position(kBandwidthFader), 4000);
    type(kGainEdit, "-6");
    EXPECT_NEAR(snapshotBand(instance, 0).gain, std::pow(10.0, -6.0 / 20.0), 1e-15);
}

TEST_F(BandPanelEditTest, TextThatIsNoNumberReadsAsZero) {
    type(kFrequencyEdit, "treble");
    EXPECT_EQ(snapshotBand(instance, 0).frequency, 0.0);
    type(kGainEdit, "x");
    EXPECT_EQ(snapshotBand(instance, 0).gain, 1.0);
    type(kBandwidthEdit, "wide");
    EXPECT_EQ(snapshotBand(instance, 0).bandwidth, 0.0);
}

TEST_F(BandPanelEditTest, GainsAboveTheDesignCeilingShowAsItsDecibels) {
    {
        MutexLock lock(instance->mutex);
        EqBand* band = instance->band(0);
        designBand(band, band->type, true, band->frequency, 100.0, band->bandwidth);
    }
    kobal::SendMessage(panel(), WM_REFRESH_BANDPANEL, 0, 0);
    EXPECT_EQ(text(panelControl(kGainEdit)), "36.1");
}

TEST_F(BandPanelEditTest, TypingOpensOneGestureThatTheTimerClosesOnceTheFocusMoves) {
    type(kGainEdit, "4");
    // Emptying the box and typing the digit: two edits of parameter 1.
    EXPECT_EQ(count(audioMasterBeginEdit, 1), 1);
    EXPECT_EQ(count(audioMasterAutomate, 1), 2);
    EXPECT_EQ(notices().front().opcode, audioMasterBeginEdit);
    EXPECT_EQ(notices().back().opcode, audioMasterAutomate);
    EXPECT_EQ(notices().back().opt, static_cast<float>(0.25 * std::pow(10.0, 4.0 / 20.0)));
    advanceClock(40);
    EXPECT_EQ(count(audioMasterEndEdit, 1), 0);
    kobal_layer::SetFocus(control(kOutputGainEdit));
    advanceClock(40);
    EXPECT_EQ(count(audioMasterEndEdit, 1), 1);
    EXPECT_EQ(instance->gestureParam, -1);
}

TEST_F(BandPanelEditTest, TypingInAnotherBoxEndsTheFirstGestureBeforeTheNextBegins) {
    type(kFrequencyEdit, "500");
    clearNotices();
    type(kBandwidthEdit, "1");
    const std::vector<HostNotice> sent = notices();
    ASSERT_GE(sent.size(), 3u);
    EXPECT_EQ(sent[0].opcode, audioMasterEndEdit);
    EXPECT_EQ(sent[0].index, 0);
    EXPECT_EQ(sent[1].opcode, audioMasterBeginEdit);
    EXPECT_EQ(sent[1].index, 2);
}

TEST_F(BandPanelEditTest, ClickingTheEditorEndsTheGesture) {
    type(kBandwidthEdit, "3");
    clearNotices();
    kobal::SendMessage(editor(), WM_LBUTTONDOWN, 0, 0);
    ASSERT_EQ(notices().size(), 1u);
    EXPECT_EQ(notices()[0].opcode, audioMasterEndEdit);
    EXPECT_EQ(notices()[0].index, 2);
}

}  // namespace
