// Shared pieces of the windowing layer's tests: a fixture that starts every
// test from a clean layer on the manual clock, and window procedures that
// record the messages they receive.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "contracts/kobal.h"

// Rectangles compare edge by edge and print as {left, top, right, bottom}.
inline bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
inline void PrintTo(const RECT& rect, std::ostream* out) {
    *out << "{" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom
         << "}";
}

struct RecordedMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// Every message that reached a recording procedure, in order.
std::vector<RecordedMessage>& recordedMessages();
// Only the messages numbered `message`.
std::vector<RecordedMessage> recordedOf(UINT message);
// A window procedure that records and then does the default handling.
LRESULT recordingWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// A dialog procedure that records and answers 0 (default handling), and on
// WM_INITDIALOG keeps lParam in GWL_USERDATA as the plug-in's dialogs do.
LRESULT recordingDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Inserts a text tab at `index` of a tab strip; answers TabCtrl_InsertItem's result.
int insertTab(HWND tabs, int index, const char* text);

// A child window with recordingWindowProcedure at `rect` in `parent`.
HWND createRecordingWindow(HWND parent, RECT rect, bool visible = true);

class UiLayerTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
    // A shown host window at (100, 50) on the screen, 400 × 300.
    HWND hostWindow();
};

constexpr int kHostLeft = 100;
constexpr int kHostTop = 50;

// A path under the build's screenshot folder (created when missing).
std::string screenshotPath(const std::string& fileName);
