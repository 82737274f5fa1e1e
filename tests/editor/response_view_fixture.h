// The response view inside an open editor, sized for the test, with helpers
// to set bands, paint, read the painted pixels and point at the graph.
#pragma once

#include <cstdint>

#include "tests/editor/editor_dialog_fixture.h"

class ResponseViewTest : public EditorDialogTest {
protected:
    // Opens the editor and gives the graph a client area of width by height.
    void openView(int width, int height);
    void paint();
    uint32_t pixel(int x, int y) const;  // of the view's off-screen bitmap
    int countPixels(uint32_t color, int left, int top, int right, int bottom) const;

    // Replaces band `index` the way the editor does, under the lock.
    void setBand(int index, int32_t type, double frequency, double gain, double bandwidth,
                 bool enabled = true);
    // Disables every band.
    void silenceAllBands();

    POINT screenPoint(int x, int y) const;  // of a client point of the view

    HWND view = nullptr;
};
