// The standard controls and the notifications their parent receives.
#include "host/ui/dialog_items.h"
#include "host/ui/dialogs.h"
#include "host/ui/fader.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/input_injection.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

enum ControlId { kEdit = 1, kTabs, kHorizontal, kVertical };

// At scale 1 the dialog units are pixels.
const ControlRecord kControls[] = {
    {kMarkerEdit, 0, 0, "", kEdit, 100, 10, 60, 20, 0},
    {"Bands", kTabs, 0, "SysTabControl32", 0x10000, 10, 70, 260, 60, 0},
    {"", kHorizontal, 0, "HARVINhfader", 0x10000, 10, 140, 210, 20, 0},
    {"", kVertical, 0, "HARVINvfader", 0x10000, 300, 10, 20, 110, 0},
};

void createControls(HWND window, int32_t) {
    KOBAL_MakeSetCurParms(1.0f, 1.0f, 0, 0, window, false, true);
    KOBAL_GenerateDialogFromList(kControls, std::size(kControls));
}

DialogResource controlsResource{300, "", 13, 0, createControls, 340, 180, nullptr};

std::vector<UINT> tabNotifications;  // the header itself only lives during the call

LRESULT notedDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY && wParam == kTabs)
        tabNotifications.push_back(reinterpret_cast<NMHDR*>(lParam)->code);
    return recordingDialogProcedure(window, message, wParam, lParam);
}

class Controls : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        tabNotifications.clear();
        dialog = KOBAL_CreateDialog(&controlsResource, 300, hostWindow(), notedDialogProcedure, 0);
        ShowWindow(dialog, SW_SHOW);
        recordedMessages().clear();
    }
    HWND item(int id) { return GetDlgItem(dialog, id); }
    // The notification codes of the WM_COMMANDs the dialog received from control `id`.
    std::vector<UINT> commandsFrom(int id) {
        std::vector<UINT> codes;
        for (const RecordedMessage& message : recordedOf(WM_COMMAND))
            if (message.lParam == reinterpret_cast<LPARAM>(item(id)) &&
                (message.wParam & 0xFFFF) == static_cast<WPARAM>(id))
                codes.push_back(message.wParam >> 16);
        return codes;
    }
    int position(int id) { return SendMessage(item(id), TBM_GETPOS, 0, 0); }
    HWND dialog = nullptr;
};

TEST_F(Controls, EditSendsEnChangeForEverySetAndTypedCharacterAndBackspaceDeletes) {
    SetDlgItemText(dialog, kEdit, "0.0");
    typeIntoEdit(item(kEdit), "-3.5");  // clear, then four characters
    EXPECT_EQ(commandsFrom(kEdit), (std::vector<UINT>(6, EN_CHANGE)));
    typeIntoEdit(item(kEdit), "\b\b1", false);
    char text[16];
    EXPECT_EQ(GetDlgItemText(dialog, kEdit, text, sizeof text), 3u);
    EXPECT_STREQ(text, "-31");
}

// Forty tabs in a strip 260 pixels wide: two arrow buttons at the right end
// of the header row scroll the headers one tab at a time, the current tab is
// kept in view, and every tab can be reached and clicked.
TEST_F(Controls, TabsThatDoNotFitScrollWithTwoArrowButtonsAndKeepTheCurrentTabInView) {
    HWND tabs = item(kTabs);
    for (int i = 0; i < 3; ++i) insertTab(tabs, i, std::to_string(i + 1));
    EXPECT_EQ(tabScrollButtonRect(tabs, 1).right, 0);  // they fit: no arrows
    for (int i = 3; i < 40; ++i) insertTab(tabs, i, std::to_string(i + 1));
    const RECT left = tabScrollButtonRect(tabs, -1);
    const RECT right = tabScrollButtonRect(tabs, 1);
    ASSERT_GT(left.right, left.left);
    EXPECT_EQ(left.right, right.left);
    EXPECT_EQ(right.right, 260);  // at the right end
    const auto shown = [&](int index) { return tabHeaderRect(tabs, index).right > 0; };
    int lastShown = 0;
    while (shown(lastShown + 1)) ++lastShown;
    EXPECT_LE(tabHeaderRect(tabs, lastShown).right, left.left);
    EXPECT_FALSE(shown(39));
    clickAt(tabs, POINT{right.left + 8, 10});
    EXPECT_FALSE(shown(0));
    EXPECT_EQ(tabHeaderRect(tabs, 1).left, 2);
    EXPECT_TRUE(tabNotifications.empty());  // scrolling leaves the selection
    clickAt(tabs, POINT{left.left + 8, 10});
    EXPECT_TRUE(shown(0));
    TabCtrl_SetCurSel(tabs, 39);
    EXPECT_TRUE(shown(39));
    EXPECT_FALSE(shown(0));
    for (int index : {0, 20, 39, 5}) {
        SCOPED_TRACE(index);
        EXPECT_TRUE(clickTab(tabs, index));
        EXPECT_EQ(TabCtrl_GetCurSel(tabs), index);
        EXPECT_TRUE(shown(index));
    }
    EXPECT_FALSE(clickTab(tabs, 40));
    clickTab(tabs, 5);  // the current tab again: nothing
    ASSERT_EQ(tabNotifications.size(), 8u);
    EXPECT_EQ(tabNotifications[0], TCN_SELCHANGING);
    EXPECT_EQ(tabNotifications[1], TCN_SELCHANGE);
}

TEST_F(Controls, FadersTrackADragEndItAndMoveOnePercentPerWheelNotchProgramsMoveThemSilently) {
    HWND fader = item(kHorizontal);
    SendMessage(fader, TBM_SETPOS, 0, 1500);
    EXPECT_EQ(position(kHorizontal), 1000);  // clamped to the range
    // 210 pixels wide with a 10-pixel knob: 200 pixels of travel, 5 positions each.
    EXPECT_TRUE(dragFaderTo(fader, 750));
    EXPECT_EQ(GetFocus(), fader);  // pressing a control gives it the keyboard focus
    EXPECT_EQ(position(kHorizontal), 750);
    auto scrolls = recordedOf(WM_HSCROLL);
    ASSERT_GE(scrolls.size(), 3u);
    EXPECT_EQ(scrolls[0].wParam & 0xFFFF, static_cast<WPARAM>(SB_THUMBTRACK));
    EXPECT_EQ(scrolls[0].lParam, reinterpret_cast<LPARAM>(fader));
    EXPECT_EQ(scrolls[scrolls.size() - 2].wParam, (750u << 16) | SB_THUMBTRACK);
    EXPECT_EQ(scrolls.back().wParam & 0xFFFF, static_cast<WPARAM>(SB_ENDSCROLL));
    SendMessage(fader, TBM_SETPOS, 1, 500);
    turnWheel(screenPointOf(fader, POINT{50, 10}), -2 * kWheelNotch);
    EXPECT_EQ(position(kHorizontal), 480);
    clickAt(item(kVertical), POINT{10, 0});  // the vertical fader's maximum is at the top
    EXPECT_EQ(position(kVertical), 1000);
    EXPECT_EQ(recordedOf(WM_VSCROLL).back().lParam, reinterpret_cast<LPARAM>(item(kVertical)));
}

}  // namespace
