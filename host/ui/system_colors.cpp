#include "host/ui/system_colors.h"

namespace kobal_layer {
namespace {

struct SystemColor {
    int index;
    DWORD rgb;
};

constexpr SystemColor kSystemColors[] = {
    {COLOR_SCROLLBAR, 0xC8C8C8},
    {COLOR_BACKGROUND, 0x000000},
    {COLOR_MENU, 0xF0F0F0},
    {COLOR_WINDOW, 0xFFFFFF},
    {COLOR_WINDOWFRAME, 0x646464},
    {COLOR_MENUTEXT, 0x000000},
    {COLOR_READOUT_BACKGROUND, 0xFFFFE1},
    {COLOR_READOUT_TEXT, 0x000000},
    {COLOR_HIGHLIGHT, 0x0078D7},
    {COLOR_HIGHLIGHTTEXT, 0xFFFFFF},
    {COLOR_BTNFACE, 0xF0F0F0},
    {COLOR_BTNSHADOW, 0xA0A0A0},
    {COLOR_GRAYTEXT, 0x6D6D6D},
    {COLOR_BTNTEXT, 0x000000},
    {COLOR_BTNHIGHLIGHT, 0xFFFFFF},
};

}  // namespace

DWORD GetSysColor(int index) {
    for (const SystemColor& color : kSystemColors)
        if (color.index == index) return color.rgb;
    return 0;
}

uint32_t systemPixel(int index) { return 0xFF000000u | GetSysColor(index); }

}  // namespace kobal_layer
