#include "host/x11/key_mapping.h"

#include <X11/keysym.h>

#include <cctype>

#include "host/ui/input_injection.h"

namespace x11_front {
namespace {

struct KeyRow {
    KeySym keySym;
    int virtualKey;
    char typed;
};

// Keys that edit or move rather than type; the ones Win32 also reports as a
// character carry it.
const KeyRow kEditingKeys[] = {
    {XK_BackSpace, kobal_layer::VK_BACK, '\b'},
    {XK_Tab, kobal_layer::VK_TAB, '\t'},
    {XK_Return, kobal_layer::VK_RETURN, '\r'},
    {XK_KP_Enter, kobal_layer::VK_RETURN, '\r'},
    {XK_Escape, kobal_layer::VK_ESCAPE, 0x1B},
    {XK_Delete, kobal_layer::VK_DELETE, 0},
    {XK_KP_Delete, kobal_layer::VK_DELETE, 0},
    {XK_Home, kobal_layer::VK_HOME, 0},
    {XK_End, kobal_layer::VK_END, 0},
    {XK_Left, kobal_layer::VK_LEFT, 0},
    {XK_Up, kobal_layer::VK_UP, 0},
    {XK_Right, kobal_layer::VK_RIGHT, 0},
    {XK_Down, kobal_layer::VK_DOWN, 0},
};

const KeyRow kModifierKeys[] = {
    {XK_Shift_L, VK_SHIFT, 0},     {XK_Shift_R, VK_SHIFT, 0}, {XK_Control_L, VK_CONTROL, 0},
    {XK_Control_R, VK_CONTROL, 0}, {XK_Alt_L, VK_MENU, 0},    {XK_Alt_R, VK_MENU, 0},
};

// Letters and digits have virtual-key codes equal to their upper-case
// character; other typing keys are delivered as characters only.
int virtualKeyOfCharacter(char typed) {
    unsigned char c = static_cast<unsigned char>(typed);
    if (std::isdigit(c) || (c < 0x80 && std::isalpha(c))) return std::toupper(c);
    return 0;
}

}  // namespace

int modifierKeyOf(KeySym keySym) {
    for (const KeyRow& row : kModifierKeys)
        if (row.keySym == keySym) return row.virtualKey;
    return 0;
}

LayerKey layerKeyOf(KeySym keySym, const char* text, int textLength) {
    for (const KeyRow& row : kEditingKeys)
        if (row.keySym == keySym) return {row.virtualKey, row.typed};
    if (textLength != 1) return {};
    return {virtualKeyOfCharacter(text[0]), text[0]};
}

}  // namespace x11_front
