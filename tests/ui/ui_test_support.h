// The windowing layer's tests start from a clean layer on the manual clock
// and record the messages their window procedures receive.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "contracts/kobal.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"

inline bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

struct RecordedMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

inline std::vector<RecordedMessage>& recordedMessages() {
    static std::vector<RecordedMessage> messages;
    return messages;
}

inline std::vector<RecordedMessage> recordedOf(UINT message) {
    std::vector<RecordedMessage> matching;
    for (const RecordedMessage& recorded : recordedMessages())
        if (recorded.message == message) matching.push_back(recorded);
    return matching;
}

inline LRESULT recordingWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    return kobal_layer::DefWindowProc(window, message, wParam, lParam);
}

// Keeps WM_INITDIALOG's lParam in GWL_USERDATA as the plug-in's dialogs do.
inline LRESULT recordingDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    if (message == WM_INITDIALOG) kobal_layer::SetWindowLong(window, GWL_USERDATA, lParam);
    return 0;
}

inline int insertTab(HWND tabs, int index, std::string text) {
    TCITEM tab{TCIF_TEXT, 0, 0, text.data(), 0, 0, 0};
    return kobal_layer::TabCtrl_InsertItem(tabs, index, &tab);
}

inline HWND createRecordingWindow(HWND parent, RECT rect) {
    kobal_layer::WindowCreation creation;
    creation.parent = parent;
    creation.rect = rect;
    creation.procedure = recordingWindowProcedure;
    return kobal_layer::createWindow(creation);
}

constexpr int kHostLeft = 100;
constexpr int kHostTop = 50;

class UiLayerTest : public ::testing::Test {
protected:
    void SetUp() override {
        kobal_layer::resetWindowingLayer();
        kobal_layer::useTestClock(1000);
        recordedMessages().clear();
    }
    void TearDown() override {
        kobal_layer::resetWindowingLayer();
        kobal_layer::useRealClock();
    }
    // A shown host window at (100, 50) on the screen, 400 × 300.
    HWND hostWindow() {
        return kobal_layer::createHostWindow(
            "Test host", RECT{kHostLeft, kHostTop, kHostLeft + 400, kHostTop + 300});
    }
};
