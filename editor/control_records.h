// Builders for the windowing layer's dialog control records, one per kind of
// control, so that a dialog's list reads like its table. Positions and sizes
// are dialog units.
#pragma once

#include <cstdint>

#include "contracts/kobal.h"

// Win32 style bits used by the plug-in's dialogs.
constexpr uint32_t kStyleTabStop = 0x10000;         // WS_TABSTOP
constexpr uint32_t kStyleCheckBox = 0x10003;        // WS_TABSTOP | BS_AUTOCHECKBOX
constexpr uint32_t kStyleDropDownList = 0x210003;   // WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST
constexpr uint32_t kStyleReadOnlyEdit = 0x10800;    // WS_TABSTOP | ES_READONLY
constexpr uint32_t kStyleCentredEdit = 0x1;         // ES_CENTER
constexpr uint32_t kStylePlaceholder = 0x88000004;  // SS_BLACKRECT | WS_DISABLED | 0x80000000

constexpr int32_t kAlignLeft = -1;
constexpr int32_t kAlignDefault = 0;

// A control of a named window class.
constexpr ControlRecord genericControl(const char* text, int32_t id, const char* className,
                                       uint32_t style, int32_t x, int32_t y, int32_t width,
                                       int32_t height) {
    return ControlRecord{text, id, 0, className, style, x, y, width, height, 0};
}

// A control the layer makes from a marker.
constexpr ControlRecord markedControl(const char* marker, int32_t alignment, const char* text,
                                      int32_t id, int32_t x, int32_t y, int32_t width,
                                      int32_t height, uint32_t style) {
    return ControlRecord{marker,  alignment, 0, text,  static_cast<uint32_t>(id),
                         x,       y,         width, height, style};
}

constexpr ControlRecord labelControl(const char* text, int32_t id, int32_t alignment, int32_t x,
                                     int32_t y, int32_t width, int32_t height) {
    return markedControl(kMarkerLabel, alignment, text, id, x, y, width, height, 0);
}

constexpr ControlRecord editControl(int32_t id, int32_t x, int32_t y, int32_t width,
                                    int32_t height, uint32_t style) {
    return markedControl(kMarkerEdit, kAlignDefault, "", id, x, y, width, height, style);
}

constexpr ControlRecord comboControl(int32_t id, int32_t x, int32_t y, int32_t width,
                                     int32_t height, uint32_t style) {
    return markedControl(kMarkerCombo, kAlignDefault, "", id, x, y, width, height, style);
}

constexpr ControlRecord groupControl(const char* text, int32_t id, int32_t x, int32_t y,
                                     int32_t width, int32_t height) {
    return markedControl(kMarkerGroup, kAlignDefault, text, id, x, y, width, height, 0);
}

constexpr ControlRecord buttonControl(const char* text, int32_t id, int32_t x, int32_t y,
                                      int32_t width, int32_t height) {
    return markedControl(kMarkerButton, kAlignDefault, text, id, x, y, width, height, 0);
}
