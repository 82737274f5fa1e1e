// The band panel and the output gain as a user types and chooses: the values
// stored and the texts and fader positions shown.
#include <cmath>
#include <utility>

#include "editor/band_panel_controls.h"
#include "editor/editor_messages.h"
#include "editor/output_gain_display.h"
#include "host/extensions/fader_curve.h"
#include "host/ui/combo_box.h"
#include "host/ui/fader.h"
#include "host/ui/input_injection.h"
#include "tests/editor/editor_fixture.h"

namespace {

class BandPanelTest : public EditorTest {
protected:
    void type(int id, const std::string& value) {
        kobal_layer::typeIntoEdit(panelControl(id), value);
    }
    int position(HWND fader) const {
        return static_cast<int>(kobal::SendMessage(fader, TBM_GETPOS, 0, 0));
    }
    void redesignBandOne(int32_t type, double gain) {
        setBand(0, type, 100.0, gain, 1.0);
        kobal::SendMessage(panel(), WM_REFRESH_BANDPANEL, 0, 0);
    }
};

// Typed values are stored unclamped and shown as typed, text that is no number
// as 0 (a gain as unity); the faders (frequency: log axis, 20 Hz at 0, 24 kHz
// at 1000) and the note name follow.
TEST_F(BandPanelTest, TypedValuesAreStoredUnclampedAndNonNumbersAsZero) {
    struct Case {
        int edit;
        const char* typed;
        double EqBand::*value;
        double stored;
        int fader = 0, faderPosition = 0;
        const char* note = nullptr;
    };
    const Case cases[] = {
        {kFrequencyEdit, "440", &EqBand::frequency, 440.0, kFrequencyFader, 347, "A3"},
        {kFrequencyEdit, "1000", &EqBand::frequency, 1000.0, kFrequencyFader, 476, "B4"},
        {kBandwidthEdit, "6", &EqBand::bandwidth, 6.0, kBandwidthFader, 4000},
        {kGainEdit, "-6", &EqBand::gain, std::exp(-6.0 * kLogPerDb)},
        {kFrequencyEdit, "treble", &EqBand::frequency, 0.0},
        {kGainEdit, "x", &EqBand::gain, 1.0},
        {kBandwidthEdit, "wide", &EqBand::bandwidth, 0.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        type(c.edit, c.typed);
        EXPECT_NEAR(band(0).*c.value, c.stored, 1e-15);
        EXPECT_EQ(text(panelControl(c.edit)), c.typed);
        if (c.fader) {
            EXPECT_EQ(position(panelControl(c.fader)), c.faderPosition);
        }
        if (c.note) {
            EXPECT_EQ(text(panelControl(kNoteNameBox)), c.note);
        }
    }
}

TEST_F(BandPanelTest, GainsAboveTheDesignCeilingShowAsItsDecibels) {
    redesignBandOne(LowShelf, 100.0);
    EXPECT_EQ(text(panelControl(kGainEdit)), "36.1");
}

TEST_F(BandPanelTest, TypeListPutsBandThirdAndTheOldVariantsLast) {
    const std::vector<std::string> entries = {
        "Low Shelf", "High Shelf", "Band",      "Low Pass",   "High Pass",
        "All Pass",  "Notch",      "Band Pass", "Band (alt)", "Band (alt 2)"};
    HWND list = panelControl(kBandTypeList);
    ASSERT_EQ(kobal::SendMessage(list, kobal_layer::CB_GETCOUNT, 0, 0), 10);
    for (size_t i = 0; i < entries.size(); ++i) {
        char entry[64] = "";
        kobal::SendMessage(list, kobal_layer::CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(entry));
        EXPECT_EQ(entry, entries[i]) << "entry " << i;
    }
    redesignBandOne(BandAlt, 1.0);
    EXPECT_EQ(kobal::SendMessage(list, CB_GETCURSEL, 0, 0), 8);
}

// Typed dB set the gain (no number: unity) and move the fader: 6 dB half way
// from 0 dB (750) to +12 dB (1000). Gains from outside show as dB with one
// decimal, silent ones as "-inf" while the fader keeps their level (floor
// -150 dB); the host hears nothing of those writes.
TEST_F(BandPanelTest, OutputGainShowsAsDecibelTextAndFaderPosition) {
    HWND fader = control(kOutputGainFader), box = control(kOutputGainEdit);
    kobal_layer::typeIntoEdit(box, "6");
    EXPECT_NEAR(instance->outputGain, 1.9952623149688795, 1e-15);
    EXPECT_EQ(position(fader),
              static_cast<int>(faderPositionOfDb(std::log(instance->outputGain) * kDbPerLog)));
    EXPECT_NEAR(position(fader), 875, 1);
    EXPECT_STREQ(kobal_layer::faderText(fader, kobal_layer::kFaderValueText), "6");
    kobal_layer::typeIntoEdit(box, "loud");
    EXPECT_EQ(instance->outputGain, 1.0);
    EXPECT_EQ(position(fader), 750);
    clearNotices();
    const std::pair<double, std::string> cases[] = {{1.0, "0.0"},       {2.0, "6.0"},
                                                    {0.5, "-6.0"},      {1.1e-6, "-119.2"},
                                                    {1e-6, "-inf"},     {0.0, "-inf"}};
    for (const auto& [gain, shown] : cases) {
        instance->outputGain = gain;
        refresh();
        EXPECT_EQ(text(box), shown);
        const double db = gain > 0.0 ? std::log(gain) * kDbPerLog : -150.0;
        EXPECT_EQ(position(fader), static_cast<int>(faderPositionOfDb(db))) << shown;
    }
    EXPECT_STREQ(kobal_layer::faderText(fader, kobal_layer::kFaderValueText), "-inf");
    EXPECT_TRUE(notices().empty());
}

}  // namespace
