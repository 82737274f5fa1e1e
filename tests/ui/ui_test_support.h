// Shared pieces of the windowing layer's tests: a fixture that starts every
// test from a clean layer on the manual clock, window procedures that record
// the messages they receive, and PNG files read back.
#pragma once

#include <cairo.h>
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "contracts/kobal.h"
#include "host/raster/canvas.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"

// Rectangles compare edge by edge and print as {left, top, right, bottom}.
inline bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
inline void PrintTo(const RECT& r, std::ostream* out) {
    *out << "{" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << "}";
}

struct RecordedMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// Every message that reached a recording procedure, in order.
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

// Answers 0 (default handling) and keeps WM_INITDIALOG's lParam in
// GWL_USERDATA as the plug-in's dialogs do.
inline LRESULT recordingDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    if (message == WM_INITDIALOG) kobal_layer::SetWindowLong(window, GWL_USERDATA, lParam);
    return 0;
}

inline int insertTab(HWND tabs, int index, std::string text) {
    TCITEM tab{TCIF_TEXT, 0, 0, text.data(), 0, 0, 0};
    return kobal_layer::TabCtrl_InsertItem(tabs, index, &tab);
}

inline HWND createRecordingWindow(HWND parent, RECT rect, bool visible = true) {
    kobal_layer::WindowCreation creation;
    creation.parent = parent;
    creation.rect = rect;
    creation.procedure = recordingWindowProcedure;
    creation.visible = visible;
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

// A PNG file decoded onto a canvas of its size (0 × 0 when unreadable).
inline std::unique_ptr<Canvas> decodePng(const std::string& path) {
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    auto canvas = std::make_unique<Canvas>(cairo_image_surface_get_width(image),
                                           cairo_image_surface_get_height(image));
    cairo_t* cr = cairo_create(canvas->surface());
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(image);
    return canvas;
}
