#include "tests/ui/ui_test_support.h"

#include <filesystem>

#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"

using namespace kobal_layer;

std::vector<RecordedMessage>& recordedMessages() {
    static std::vector<RecordedMessage> messages;
    return messages;
}

std::vector<RecordedMessage> recordedOf(UINT message) {
    std::vector<RecordedMessage> matching;
    for (const RecordedMessage& recorded : recordedMessages())
        if (recorded.message == message) matching.push_back(recorded);
    return matching;
}

LRESULT recordingWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    return DefWindowProc(window, message, wParam, lParam);
}

LRESULT recordingDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    if (message == WM_INITDIALOG) SetWindowLong(window, GWL_USERDATA, lParam);
    return 0;
}

int insertTab(HWND tabs, int index, const char* text) {
    std::string copy = text;
    TCITEM tab{TCIF_TEXT, 0, 0, copy.data(), 0, 0, 0};
    return TabCtrl_InsertItem(tabs, index, &tab);
}

HWND createRecordingWindow(HWND parent, RECT rect, bool visible) {
    WindowCreation creation;
    creation.parent = parent;
    creation.rect = rect;
    creation.procedure = recordingWindowProcedure;
    creation.visible = visible;
    return createWindow(creation);
}

void UiLayerTest::SetUp() {
    resetWindowingLayer();
    useTestClock(1000);
    recordedMessages().clear();
}

void UiLayerTest::TearDown() {
    resetWindowingLayer();
    useRealClock();
}

HWND UiLayerTest::hostWindow() {
    return createHostWindow("Test host",
                            RECT{kHostLeft, kHostTop, kHostLeft + 400, kHostTop + 300});
}

std::string screenshotPath(const std::string& fileName) {
    std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
    return std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + fileName;
}
