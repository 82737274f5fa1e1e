// Reading one record of a dialog's control list: a generic control names its
// window class; a marker record ("__KOBAL_LABEL", "__KOBAL_EDIT", ...) stands
// for a standard control and carries its fields one place further on.
#pragma once

#include <string>

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr const char* kStaticClassName = "Static";
constexpr const char* kButtonClassName = "Button";
constexpr const char* kEditClassName = "Edit";
constexpr const char* kComboClassName = "ComboBox";

constexpr uint32_t BS_PUSHBUTTON = 0x0;
constexpr uint32_t BS_CHECKBOX = 0x2;
constexpr uint32_t BS_AUTOCHECKBOX = 0x3;
constexpr uint32_t BS_GROUPBOX = 0x7;
constexpr uint32_t BS_TYPEMASK = 0xF;
constexpr uint32_t SS_LEFT = 0x0;
constexpr uint32_t SS_CENTER = 0x1;
constexpr uint32_t SS_RIGHT = 0x2;
constexpr uint32_t SS_BLACKRECT = 0x4;
constexpr uint32_t SS_TYPEMASK = 0x1F;
constexpr uint32_t ES_CENTER = 0x1;
constexpr uint32_t ES_RIGHT = 0x2;
constexpr uint32_t ES_READONLY = 0x800;
constexpr uint32_t CBS_DROPDOWNLIST = 0x3;

struct ControlPlacement {
    std::string className;
    std::string text;
    int id = 0;
    uint32_t style = 0;
    int x = 0, y = 0, width = 0, height = 0;  // dialog units
};

ControlPlacement readControlRecord(const ControlRecord& record);
// Creates the control at `rect` (pixels), shown; a custom creator decides
// the placement and visibility of its own windows.
HWND createDialogControl(HWND parent, const ControlPlacement& placement, const RECT& rect);

}  // namespace kobal_layer
