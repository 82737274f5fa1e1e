// The band panel's faders: their ranges and mappings, the texts they carry,
// and the automation the host receives while one is dragged.
#include <cmath>
#include <string>

#include "editor/band_panel_controls.h"
#include "editor/output_gain_display.h"
#include "host/extensions/fader_curve.h"
#include "host/ui/fader.h"
#include "host/ui/input_injection.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

// The logarithmic frequency axis written out: 20 Hz at 0, 24 kHz at 1.
double frequencyAt(double axis) { return 20.0 + (std::exp(axis * std::log(401.0)) - 1.0) * 59.95; }

class BandPanelFaderTest : public OpenEditorTest {
protected:
    HWND fader(int id) const { return panelControl(id); }
    int position(int id) const {
        return static_cast<int>(kobal::SendMessage(fader(id), TBM_GETPOS, 0, 0));
    }
    void drag(int id, int to) { ASSERT_TRUE(kobal_layer::dragFaderTo(fader(id), to)); }
    void select(int band) {
        instance->selectedBand = band;
        instance->dirtyFlags |= 2;
        advanceClock(40);
    }
};

TEST_F(BandPanelFaderTest, FrequencyFaderSpansTwentyHzToTwentyFourKilohertzOnALogAxis) {
    drag(kFrequencyFader, 0);
    ASSERT_EQ(position(kFrequencyFader), 0);
    EXPECT_EQ(snapshotBand(instance, 0).frequency, 20.0);
    drag(kFrequencyFader, 1000);
    ASSERT_EQ(position(kFrequencyFader), 1000);
    EXPECT_NEAR(snapshotBand(instance, 0).frequency, 24000.0, 1e-9);
    EXPECT_EQ(text(panelControl(kFrequencyEdit)), "24000.0");
    drag(kFrequencyFader, 400);  // in between: the log axis
    const int at = position(kFrequencyFader);
    EXPECT_NEAR(snapshotBand(instance, 0).frequency, frequencyAt(at / 1000.0), 1e-9);
}

TEST_F(BandPanelFaderTest, ABandAtOneKilohertzPutsTheFaderAt476) {
    select(2);
    ASSERT_EQ(snapshotBand(instance, 2).frequency, 1000.0);
    // 1000 ln(1 + 400 * 980 / 23980) / ln 401 = 476.05, truncated.
    EXPECT_EQ(position(kFrequencyFader), 476);
    EXPECT_EQ(text(panelControl(kNoteNameBox)), "B4");
}

TEST_F(BandPanelFaderTest, BandwidthFaderCountsThousandthsOfAnOctaveFromTenTo4000) {
    EXPECT_EQ(kobal::SendMessage(fader(kBandwidthFader), kobal_layer::TBM_GETRANGEMIN, 0, 0), 10);
    EXPECT_EQ(kobal::SendMessage(fader(kBandwidthFader), kobal_layer::TBM_GETRANGEMAX, 0, 0),
              4000);
    EXPECT_EQ(position(kBandwidthFader), 2000);
    drag(kBandwidthFader, 10);
    EXPECT_EQ(snapshotBand(instance, 0).bandwidth, 0.01);
    EXPECT_EQ(text(panelControl(kBandwidthEdit)), "0.01");
    drag(kBandwidthFader, 4000);
    EXPECT_EQ(snapshotBand(instance, 0).bandwidth, 4.0);
    EXPECT_EQ(text(panelControl(kBandwidthEdit)), "4.00");
}

TEST_F(BandPanelFaderTest, GainFaderFollowsTheHostFaderCurve) {
    EXPECT_EQ(position(kGainFader), static_cast<int>(faderPositionOfDb(0.0)));
    drag(kGainFader, 875);
    const int at = position(kGainFader);
    const double db = dbOfFaderPosition(at);
    EXPECT_NEAR(snapshotBand(instance, 0).gain, std::pow(10.0, db / 20.0), 1e-12);
    char expected[32];
    std::snprintf(expected, sizeof expected, "%.1f", db);
    EXPECT_EQ(text(panelControl(kGainEdit)), expected);
    EXPECT_EQ(std::string(kobal_layer::faderText(fader(kGainFader), kobal_layer::kFaderValueText)),
              expected);
}

TEST_F(BandPanelFaderTest, FadersCarryTheirNames) {
    using kobal_layer::faderText;
    EXPECT_STREQ(faderText(fader(kFrequencyFader), kobal_layer::kFaderNameText), "Band frequency");
    EXPECT_STREQ(faderText(fader(kGainFader), kobal_layer::kFaderNameText), "Band gain");
    EXPECT_STREQ(faderText(fader(kBandwidthFader), kobal_layer::kFaderNameText), "Band width");
    EXPECT_STREQ(faderText(control(kOutputGainFader), kobal_layer::kFaderNameText), "Output gain");
}

TEST_F(BandPanelFaderTest, DraggingReportsTheParameterAndEndsItsEditAtTheRelease) {
    select(1);
    clearNotices();
    drag(kGainFader, 900);
    const std::vector<HostNotice> sent = notices();
    ASSERT_GE(sent.size(), 2u);
    for (size_t i = 0; i + 1 < sent.size(); ++i) {
        EXPECT_EQ(sent[i].opcode, audioMasterAutomate);
        EXPECT_EQ(sent[i].index, 4);  // band 1, gain
    }
    EXPECT_EQ(sent.back().opcode, audioMasterEndEdit);
    EXPECT_EQ(sent.back().index, 4);
    // The last automate carries the normalized gain: a quarter of the linear value.
    const HostNotice& last = sent[sent.size() - 2];
    EXPECT_EQ(last.opt, static_cast<float>(0.25 * snapshotBand(instance, 1).gain));
}

}  // namespace
