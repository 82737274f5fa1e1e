// The output gain box and fader of the open editor: typed dB and fader
// positions become linear gains, gains show as dB text or "-inf", and the
// editor's own writes are not taken for user input.
#include <cmath>
#include <cstdio>
#include <string>

#include "editor/editor_messages.h"
#include "editor/output_gain_display.h"
#include "host/extensions/fader_curve.h"
#include "host/ui/fader.h"
#include "host/ui/input_injection.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

class OutputGainTest : public OpenEditorTest {
protected:
    int faderPosition() const {
        return static_cast<int>(kobal::SendMessage(control(kOutputGainFader), TBM_GETPOS, 0, 0));
    }
    std::string faderValueText() const {
        return kobal_layer::faderText(control(kOutputGainFader), kobal_layer::kFaderValueText);
    }
    void showGain(double gain) {
        instance->outputGain = gain;
        kobal::SendMessage(editor(), WM_REFRESH_EDITOR, 0, 0);
    }
    int automateMinusOneCount() const {
        int count = 0;
        for (const HostNotice& notice : notices())
            if (notice.opcode == audioMasterAutomate && notice.index == -1) ++count;
        return count;
    }
};

TEST_F(OutputGainTest, TypingSixDbSetsTenToTheThreeTenthsAndMovesTheFader) {
    kobal_layer::typeIntoEdit(control(kOutputGainEdit), "6");
    EXPECT_NEAR(instance->outputGain, std::pow(10.0, 6.0 / 20.0), 1e-15);
    EXPECT_NEAR(instance->outputGain, 1.9952623149688795, 1e-15);
    const double shownDb = std::log(instance->outputGain) * 8.685889638065037;
    EXPECT_EQ(faderPosition(), static_cast<int>(faderPositionOfDb(shownDb)));
    EXPECT_NEAR(faderPosition(), 875, 1);  // 6 dB is half way from 0 dB (750) to +12 dB (1000)
    EXPECT_EQ(faderValueText(), "6");
    EXPECT_EQ(text(control(kOutputGainEdit)), "6");
    // The box was emptied (0 dB) and then took the 6: one notice per edit.
    EXPECT_EQ(automateMinusOneCount(), 2);
}

TEST_F(OutputGainTest, TextThatIsNoNumberSetsUnityGain) {
    kobal_layer::typeIntoEdit(control(kOutputGainEdit), "-12");
    ASSERT_LT(instance->outputGain, 0.5);
    kobal_layer::typeIntoEdit(control(kOutputGainEdit), "loud");
    EXPECT_EQ(instance->outputGain, 1.0);
    EXPECT_EQ(faderPosition(), static_cast<int>(faderPositionOfDb(0.0)));
}

TEST_F(OutputGainTest, SilentGainsShowMinusInfWhileTheFaderKeepsTheirLevel) {
    struct Case {
        double gain;
        double faderDb;  // the level the fader stands at: the floor, or 20 log10 gain
    };
    const double microDb = std::log(1e-6) * 8.685889638065037;  // about -120 dB
    for (const Case& c : {Case{0.0, -150.0}, Case{1e-6, microDb}}) {
        SCOPED_TRACE(c.gain);
        showGain(c.gain);
        EXPECT_EQ(text(control(kOutputGainEdit)), "-inf");
        EXPECT_EQ(faderValueText(), "-inf");
        EXPECT_EQ(faderPosition(), static_cast<int>(faderPositionOfDb(c.faderDb)));
    }
}

TEST_F(OutputGainTest, GainTextsAreUnsignedDbWithOneDecimal) {
    struct Case {
        double gain;
        const char* text;
    };
    const Case cases[] = {{1.0, "0.0"}, {2.0, "6.0"}, {0.5, "-6.0"}, {1.1e-6, "-119.2"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        showGain(c.gain);
        EXPECT_EQ(text(control(kOutputGainEdit)), c.text);
    }
}

TEST_F(OutputGainTest, RefreshWritesTheBoxWithoutTellingTheHost) {
    showGain(3.0);
    EXPECT_EQ(instance->outputGain, 3.0);
    EXPECT_TRUE(notices().empty());
}

TEST_F(OutputGainTest, MovingTheFaderSetsTheGainOfItsPositionAndWritesTheBox) {
    ASSERT_TRUE(kobal_layer::dragFaderTo(control(kOutputGainFader), 550));
    const int position = faderPosition();
    const double db = dbOfFaderPosition(position);
    EXPECT_NEAR(instance->outputGain, std::pow(10.0, db / 20.0), 1e-12);
    char expected[32];
    std::snprintf(expected, sizeof expected, "%.1f", db);
    EXPECT_EQ(text(control(kOutputGainEdit)), expected);
    EXPECT_EQ(faderValueText(), expected);
    EXPECT_GE(automateMinusOneCount(), 1);
    for (const HostNotice& notice : notices()) EXPECT_EQ(notice.index, -1);
}

}  // namespace
