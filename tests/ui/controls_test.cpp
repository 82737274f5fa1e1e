// The standard controls and the notifications their parent receives.
#include "host/ui/combo_box.h"
#include "host/ui/dialog_items.h"
#include "host/ui/dialogs.h"
#include "host/ui/fader.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/input_injection.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

enum ControlId { kPush = 1, kCheck, kEdit, kReadOnly, kCombo, kTabs, kHorizontal, kVertical };

// At scale 1 the dialog units are pixels.
const ControlRecord kControls[] = {
    {kMarkerButton, 0, 0, "Add band", kPush, 10, 10, 60, 20, 0},
    {"Show grid", kCheck, 0, "Button", 0x10003, 10, 40, 80, 16, 0},
    {kMarkerEdit, 0, 0, "", kEdit, 100, 10, 60, 20, 0},
    {kMarkerEdit, 0, 0, "fixed", kReadOnly, 100, 40, 60, 20, 0x10800},
    {kMarkerCombo, 0, 0, "", kCombo, 170, 10, 100, 146, 0x210003},
    {"Bands", kTabs, 0, "SysTabControl32", 0x10000, 10, 70, 260, 60, 0},
    {"", kHorizontal, 0, "HARVINhfader", 0x10000, 10, 140, 210, 20, 0},
    {"", kVertical, 0, "HARVINvfader", 0x10000, 300, 10, 20, 110, 0},
};

void createControls(HWND window, int32_t) {
    KOBAL_MakeSetCurParms(1.0f, 1.0f, 0, 0, window, false, true);
    KOBAL_GenerateDialogFromList(kControls, std::size(kControls));
}

DialogResource controlsResource{300, "", 13, 0, createControls, 340, 180, nullptr};

// Tab notifications point at a header that only lives during the call.
std::vector<NMHDR> notifications;

LRESULT notedDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY) notifications.push_back(*reinterpret_cast<NMHDR*>(lParam));
    return recordingDialogProcedure(window, message, wParam, lParam);
}

class Controls : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        notifications.clear();
        dialog = KOBAL_CreateDialog(&controlsResource, 300, hostWindow(), notedDialogProcedure, 0);
        ShowWindow(dialog, SW_SHOW);
        recordedMessages().clear();
    }
    HWND item(int id) { return GetDlgItem(dialog, id); }
    // The WM_COMMAND words the dialog received from control `id`.
    std::vector<WPARAM> commandsFrom(int id) {
        std::vector<WPARAM> commands;
        for (const RecordedMessage& message : recordedOf(WM_COMMAND)) {
            EXPECT_EQ(message.lParam, reinterpret_cast<LPARAM>(item(message.wParam & 0xFFFF)));
            if ((message.wParam & 0xFFFF) == static_cast<WPARAM>(id))
                commands.push_back(message.wParam);
        }
        return commands;
    }
    static WPARAM command(int id, UINT code) { return (static_cast<WPARAM>(code) << 16) | id; }
    std::string textOf(int id, int size = 16) {
        char text[16];
        GetDlgItemText(dialog, id, text, size);
        return text;
    }
    int position(int id) { return SendMessage(item(id), TBM_GETPOS, 0, 0); }
    HWND dialog = nullptr;
};

TEST_F(Controls, ButtonsSendBnClickedOnAClickNotWhenReleasedOutsideOrSetByProgram) {
    pressMouse(MouseButton::left, screenPointOf(item(kPush), POINT{5, 5}));
    // Released outside: the button held the capture and sends nothing.
    EXPECT_EQ(releaseMouse(MouseButton::left, screenPointOf(item(kPush), POINT{200, 5})),
              item(kPush));
    EXPECT_TRUE(commandsFrom(kPush).empty());
    EXPECT_TRUE(clickButton(item(kPush)));
    EXPECT_EQ(commandsFrom(kPush), (std::vector<WPARAM>{command(kPush, BN_CLICKED)}));
    CheckDlgButton(dialog, kCheck, BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(dialog, kCheck), BST_CHECKED);
    EXPECT_TRUE(commandsFrom(kCheck).empty());
    clickButton(item(kCheck));
    EXPECT_EQ(IsDlgButtonChecked(dialog, kCheck), BST_UNCHECKED);
    clickButton(item(kCheck));
    EXPECT_EQ(IsDlgButtonChecked(dialog, kCheck), BST_CHECKED);
    EXPECT_EQ(commandsFrom(kCheck), (std::vector<WPARAM>(2, command(kCheck, BN_CLICKED))));
    EXPECT_EQ(IsDlgButtonChecked(dialog, 999), 0u);
}

TEST_F(Controls, EditSendsEnChangeForEverySetAndTypedCharacterAndReadOnlyIgnoresTyping) {
    SetDlgItemText(dialog, kEdit, "0.0");
    typeIntoEdit(item(kEdit), "-3.5");  // clear, then four characters
    EXPECT_EQ(commandsFrom(kEdit), (std::vector<WPARAM>(6, command(kEdit, EN_CHANGE))));
    char text[16];
    EXPECT_EQ(GetDlgItemText(dialog, kEdit, text, sizeof text), 4u);
    EXPECT_STREQ(text, "-3.5");
    typeIntoEdit(item(kEdit), "\b\b1", false);
    EXPECT_EQ(textOf(kEdit), "-31");
    EXPECT_EQ(textOf(kEdit, 3), "-3");
    typeIntoEdit(item(kReadOnly), "typed");
    EXPECT_EQ(textOf(kReadOnly), "fixed");
    EXPECT_TRUE(commandsFrom(kReadOnly).empty());
    SetDlgItemText(dialog, kReadOnly, "440.0 A4");
    EXPECT_EQ(textOf(kReadOnly), "440.0 A4");
    EXPECT_EQ(commandsFrom(kReadOnly).size(), 1u);
}

TEST_F(Controls, DropDownListSelectsSilentlyNotifiesUserChoicesAndIsAsTallAsItsField) {
    HWND combo = item(kCombo);
    const char* types[] = {"Low Shelf", "High Shelf", "Band"};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(types[i])), i);
    EXPECT_EQ(SendMessage(combo, CB_GETCURSEL, 0, 0), -1);
    EXPECT_EQ(SendMessage(combo, CB_SETCURSEL, 1, 0), 1);
    EXPECT_TRUE(commandsFrom(kCombo).empty());
    EXPECT_EQ(textOf(kCombo), "High Shelf");
    EXPECT_TRUE(chooseListEntry(combo, 2));
    EXPECT_EQ(commandsFrom(kCombo), (std::vector<WPARAM>{command(kCombo, CBN_SELCHANGE)}));
    EXPECT_EQ(SendMessage(combo, CB_GETCURSEL, 0, 0), 2);
    EXPECT_FALSE(chooseListEntry(combo, 3));
    EXPECT_EQ(SendMessage(combo, CB_SETCURSEL, 9, 0), CB_ERR);
    EXPECT_EQ(SendMessage(combo, CB_GETCURSEL, 0, 0), -1);
    SendMessage(combo, CB_RESETCONTENT, 0, 0);
    EXPECT_EQ(SendMessage(combo, CB_GETCOUNT, 0, 0), 0);
    RECT rect{};
    GetWindowRect(combo, &rect);
    EXPECT_EQ(rect.bottom - rect.top, kComboFieldHeight);
    // The fader below the list's open area still gets the mouse.
    EXPECT_EQ(WindowFromPoint(screenPointOf(dialog, POINT{200, 145})), item(kHorizontal));
}

TEST_F(Controls, TabStripKeepsItsTabsAndSelectionAndAClickNotifiesSelChangingThenSelChange) {
    HWND tabs = item(kTabs);
    EXPECT_EQ(insertTab(tabs, 0, "1"), 0);
    EXPECT_EQ(TabCtrl_GetCurSel(tabs), 0);  // the first tab becomes current
    EXPECT_EQ(insertTab(tabs, 5, "3"), 1);  // past the end: appended
    EXPECT_EQ(insertTab(tabs, 1, "2"), 1);
    EXPECT_EQ(TabCtrl_GetItemCount(tabs), 3);
    EXPECT_STREQ(tabText(tabs, 1), "2");
    EXPECT_EQ(TabCtrl_SetCurSel(tabs, 2), 0);  // the previous selection
    EXPECT_EQ(TabCtrl_SetCurSel(tabs, 3), -1);
    EXPECT_TRUE(TabCtrl_DeleteItem(tabs, 0));
    EXPECT_EQ(TabCtrl_GetCurSel(tabs), 1);  // still the tab "3"
    EXPECT_FALSE(TabCtrl_DeleteItem(tabs, 2));
    EXPECT_TRUE(notifications.empty());
    EXPECT_EQ(TabCtrl_GetItemCount(item(kEdit)), 0);  // not a tab strip
    EXPECT_TRUE(clickTab(tabs, 0));
    EXPECT_EQ(TabCtrl_GetCurSel(tabs), 0);
    ASSERT_EQ(notifications.size(), 2u);
    EXPECT_EQ(notifications[0].code, TCN_SELCHANGING);
    EXPECT_EQ(notifications[1].code, TCN_SELCHANGE);
    EXPECT_EQ(notifications[1].hwndFrom, tabs);
    EXPECT_EQ(notifications[1].idFrom, static_cast<UINT_PTR>(kTabs));
    EXPECT_EQ(recordedOf(WM_NOTIFY)[1].wParam, static_cast<WPARAM>(kTabs));
    clickTab(tabs, 0);  // the current tab again: nothing
    EXPECT_EQ(notifications.size(), 2u);
    EXPECT_FALSE(clickTab(tabs, 2));
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
    EXPECT_EQ(right.right, 260);
    const auto shown = [&](int index) { return tabHeaderRect(tabs, index).right > 0; };
    int lastShown = 0;
    while (shown(lastShown + 1)) ++lastShown;
    EXPECT_LE(tabHeaderRect(tabs, lastShown).right, left.left);
    EXPECT_FALSE(shown(39));

    clickAt(tabs, POINT{right.left + 8, 10});
    EXPECT_FALSE(shown(0));
    EXPECT_EQ(tabHeaderRect(tabs, 1).left, 2);
    EXPECT_TRUE(notifications.empty());  // scrolling leaves the selection
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
}

TEST_F(Controls, FaderKeepsItsUnsignedRangePositionAndTextsAndProgramsMoveItSilently) {
    HWND fader = item(kHorizontal);
    EXPECT_EQ(SendMessage(fader, TBM_GETRANGEMAX, 0, 0), 1000);
    SendMessage(fader, TBM_SETPOS, 0, 1500);
    EXPECT_EQ(position(kHorizontal), 1000);
    SendMessage(fader, TBM_SETRANGE, 1, (400 << 16) | 100);
    EXPECT_EQ(position(kHorizontal), 400);
    SendMessage(fader, TBM_SETPOS, 1, 50);
    EXPECT_EQ(position(kHorizontal), 100);
    SendMessage(fader, FADER_SETTEXT, 1, reinterpret_cast<LPARAM>("Output gain"));
    SendMessage(fader, FADER_SETTEXT, 2, reinterpret_cast<LPARAM>("-6.0"));
    EXPECT_STREQ(faderText(fader, kFaderNameText), "Output gain");
    EXPECT_STREQ(faderText(fader, kFaderValueText), "-6.0");
    EXPECT_TRUE(recordedOf(WM_HSCROLL).empty());
    SendMessage(fader, TBM_SETRANGE, 0, (40000 << 16) | 10);
    EXPECT_EQ(SendMessage(fader, TBM_GETRANGEMIN, 0, 0), 10);
    EXPECT_EQ(SendMessage(fader, TBM_GETRANGEMAX, 0, 0), 40000);
}

TEST_F(Controls, DraggingAHorizontalFaderTracksThenEndsAndTheWheelMovesItOnePercentPerNotch) {
    HWND fader = item(kHorizontal);
    // 210 pixels wide with a 10-pixel knob: 200 pixels of travel, 5 positions each.
    EXPECT_TRUE(dragFaderTo(fader, 750));
    EXPECT_EQ(position(kHorizontal), 750);
    auto scrolls = recordedOf(WM_HSCROLL);
    ASSERT_GE(scrolls.size(), 3u);
    for (size_t i = 0; i + 1 < scrolls.size(); ++i) {
        EXPECT_EQ(scrolls[i].wParam & 0xFFFF, static_cast<WPARAM>(SB_THUMBTRACK));
        EXPECT_EQ(scrolls[i].lParam, reinterpret_cast<LPARAM>(fader));
    }
    EXPECT_EQ(scrolls[scrolls.size() - 2].wParam >> 16, 750u);
    EXPECT_EQ(scrolls.back().wParam & 0xFFFF, static_cast<WPARAM>(SB_ENDSCROLL));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(recordedOf(WM_VSCROLL).empty());
    SendMessage(fader, TBM_SETPOS, 1, 500);
    turnWheel(screenPointOf(fader, POINT{50, 10}), kWheelNotch);
    EXPECT_EQ(position(kHorizontal), 510);
    turnWheel(screenPointOf(fader, POINT{50, 10}), -2 * kWheelNotch);
    EXPECT_EQ(position(kHorizontal), 490);
}

TEST_F(Controls, VerticalFaderHasItsMaximumAtTheTopAndScrollsVertically) {
    HWND fader = item(kVertical);
    clickAt(fader, POINT{10, 0});
    EXPECT_EQ(position(kVertical), 1000);
    clickAt(fader, POINT{10, windowHeight(*fader) - 1});
    EXPECT_EQ(position(kVertical), 0);
    EXPECT_FALSE(recordedOf(WM_VSCROLL).empty());
    EXPECT_TRUE(recordedOf(WM_HSCROLL).empty());
}

TEST_F(Controls, PressingAControlGivesItTheKeyboardFocus) {
    for (int id : {kPush, kCheck, kEdit, kCombo, kTabs, kHorizontal}) {
        clickCentre(item(id));
        EXPECT_EQ(GetFocus(), item(id)) << id;
    }
}

}  // namespace
