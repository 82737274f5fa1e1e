// The user's X input on the editor: what XTest sends to the X window
// reaches the plug-in through the windowing layer's input paths, and the
// window shows the result.
#include <X11/keysym.h>

#include <ostream>
#include <string>
#include <vector>

#include "host/ui/dialog_items.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "tests/x11/x11_editor_fixture.h"

namespace {

constexpr int kGraph = 1023;
constexpr int kTabs = 1026;
constexpr int kPanelGainEdit = 1020;
constexpr int kPanelEnabledBox = 1022;
constexpr int kFrequencyField = 0, kGainField = 1, kBandwidthField = 2;

class X11EditorInput : public X11EditorTest {
protected:
    void SetUp() override {
        X11EditorTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        graph = kobal_layer::GetDlgItem(editor, kGraph);
        ASSERT_NE(graph, nullptr);
    }
    // Where the handle of a default band at `hz` and 0 dB lies on the X screen.
    XPoint2 handleAt(double hz) const {
        RECT area{};
        kobal_layer::GetClientRect(graph, &area);
        return onScreen(graph, zeroDbPointOf(hz, area));
    }
    HWND bandPanel() const {
        for (HWND child : kobal_layer::liveWindow(editor)->children)
            if (kobal_layer::liveWindow(child)->isDialog) return child;
        return nullptr;
    }
    std::vector<float> bandValues(int band) const {
        return {session->parameter(3 * band + kFrequencyField),
                session->parameter(3 * band + kGainField),
                session->parameter(3 * band + kBandwidthField)};
    }
    bool endEditCameFor(int parameter) const {
        for (const HostCall& call : callsWith(audioMasterEndEdit))
            if (call.index == parameter) return true;
        return false;
    }

    HWND graph = nullptr;
};

struct DragCase {
    const char* name;
    KeySym heldKey;  // NoSymbol: none
    bool frequencyMoves, gainMoves, bandwidthMoves;
};

void PrintTo(const DragCase& value, std::ostream* out) { *out << value.name; }

class ModifiedDrag : public X11EditorInput, public ::testing::WithParamInterface<DragCase> {};

// A diagonal drag on the handle of band 3 (1 kHz): plain, it moves
// frequency and gain; Shift turns it into a bandwidth drag; Control holds
// the frequency and Alt the gain. The host hears of every change, and the
// window shows the moved handle.
TEST_P(ModifiedDrag, DragOnAHandleChangesTheBandAsItsKeysSay) {
    const DragCase& drag = GetParam();
    const std::vector<float> before = bandValues(2);
    const XPicture pictureBefore = user->picture(view->xWindow());
    const XPoint2 from = handleAt(1000.0);
    if (drag.heldKey != NoSymbol) user->pressKey(drag.heldKey);
    user->drag(from, {from.x + 60, from.y - 40});
    if (drag.heldKey != NoSymbol) user->releaseKey(drag.heldKey);
    const int lastMoved = drag.bandwidthMoves ? 8 : drag.gainMoves ? 7 : 6;
    ASSERT_TRUE(idleUntil([&] { return endEditCameFor(lastMoved); }));
    const std::vector<float> after = bandValues(2);
    EXPECT_EQ(after[kFrequencyField] > before[kFrequencyField], drag.frequencyMoves);
    EXPECT_EQ(after[kGainField] > before[kGainField], drag.gainMoves);
    EXPECT_EQ(after[kBandwidthField] != before[kBandwidthField], drag.bandwidthMoves);
    const std::vector<HostCall> automated = callsWith(audioMasterAutomate);
    ASSERT_FALSE(automated.empty());
    EXPECT_EQ(automated.back().opt, session->parameter(automated.back().index));
    ASSERT_TRUE(idleUntil([&] { return windowShowsTheLayer(); }));
    EXPECT_GT(differingPixels(user->picture(view->xWindow()), pictureBefore), 100);
}

INSTANTIATE_TEST_SUITE_P(Keys, ModifiedDrag,
                         ::testing::Values(DragCase{"plain", NoSymbol, true, true, false},
                                           DragCase{"shift", XK_Shift_L, false, false, true},
                                           DragCase{"control", XK_Control_L, false, true, false},
                                           DragCase{"alt", XK_Alt_L, true, false, false}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(X11EditorInput, ClickOnATabSelectsItsBand) {
    HWND tabs = kobal_layer::GetDlgItem(editor, kTabs);
    const std::string frequencyBefore =
        kobal_layer::liveWindow(kobal_layer::GetDlgItem(bandPanel(), 1019))->text;
    RECT header = kobal_layer::tabHeaderRect(tabs, 2);
    user->click(Button1, onScreen(tabs, {(header.left + header.right) / 2,
                                         (header.top + header.bottom) / 2}));
    ASSERT_TRUE(idleUntil([&] { return kobal_layer::TabCtrl_GetCurSel(tabs) == 2; }));
    EXPECT_TRUE(idleUntil([&] {
        return kobal_layer::liveWindow(kobal_layer::GetDlgItem(bandPanel(), 1019))->text !=
               frequencyBefore;
    }));
}

struct WheelCase {
    const char* name;
    unsigned int button;
    bool widens;
};

void PrintTo(const WheelCase& value, std::ostream* out) { *out << value.name; }

class WheelTurn : public X11EditorInput, public ::testing::WithParamInterface<WheelCase> {};

TEST_P(WheelTurn, WheelOverAHandleChangesItsBandwidth) {
    const float before = session->parameter(3 * 2 + kBandwidthField);
    user->click(GetParam().button, handleAt(1000.0));
    ASSERT_TRUE(idleUntil([&] { return session->parameter(8) != before; }));
    EXPECT_EQ(session->parameter(8) > before, GetParam().widens);
}

INSTANTIATE_TEST_SUITE_P(Directions, WheelTurn,
                         ::testing::Values(WheelCase{"up", Button4, true},
                                           WheelCase{"down", Button5, false}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(X11EditorInput, TypingIntoTheGainBoxSetsTheBandGain) {
    HWND gainBox = kobal_layer::GetDlgItem(bandPanel(), kPanelGainEdit);
    ASSERT_NE(gainBox, nullptr);
    user->click(Button1, onScreen(gainBox, {5, 5}));
    ASSERT_TRUE(idleUntil([&] { return kobal_layer::GetFocus() == gainBox; }));
    const size_t length = kobal_layer::liveWindow(gainBox)->text.size();
    for (size_t i = 0; i < length; ++i) user->tapKey(XK_BackSpace);
    user->typeText("6");
    ASSERT_TRUE(idleUntil([&] { return kobal_layer::liveWindow(gainBox)->text == "6"; }));
    EXPECT_EQ(session->parameterDisplay(kGainField), "6.0");  // dB, on band 1
}

TEST_F(X11EditorInput, DoubleClickOnAHandleSwitchesItsBandOff) {
    HWND enabledBox = kobal_layer::GetDlgItem(bandPanel(), kPanelEnabledBox);
    ASSERT_EQ(kobal_layer::SendMessage(enabledBox, kobal_layer::BM_GETCHECK, 0, 0), 1);
    const XPoint2 handle = handleAt(100.0);  // band 1, the one the panel shows
    user->click(Button1, handle);
    user->click(Button1, handle);
    EXPECT_TRUE(idleUntil(
        [&] { return kobal_layer::SendMessage(enabledBox, kobal_layer::BM_GETCHECK, 0, 0) == 0; }));
}

}  // namespace
