// Keeps a dialog's child controls in place when the dialog's client area
// changes size: each edge of each control follows a fraction of the change.
#pragma once

#include "contracts/kobal.h"
#include "engine/heap_buffer.h"

struct SizerItem {
    HWND window;
    RECT origRect;   // layout starts from here; the owner may adjust it
    RECT addedRect;  // as measured when added; never changed
    RECT lastRect;   // result of the last layout
    float scales[4];  // left, top, right, bottom
};

struct LayoutSizer {
    HWND dialog = nullptr;
    int32_t refWidth = 0;
    int32_t refHeight = 0;
    HeapBuffer items;  // SizerItem records in insertion order

    void init(HWND dialogWindow, const RECT* referenceRect);
    void addItem(int controlId, float left, float top, float right, float bottom,
                 const RECT* initialRect = nullptr);
    SizerItem* findItem(int controlId);
    void applyLayout(HWND onlyWindow, bool noMove, int xOffset, int yOffset);
};

// Moves r's edges by the scaled change between `client` and the reference size.
void transformRect(RECT& r, const float scales[4], const RECT& client, int32_t refWidth,
                   int32_t refHeight);
