#include "editor/typed_number.h"

#include <cstdlib>

#include "plugin/ui_layer.h"

namespace {
constexpr int kReadLimit = 511;  // characters, terminator included
}

double readTypedNumber(HWND dialog, int boxId, char (&text)[512]) {
    text[0] = '\0';
    kobal::GetDlgItemText(dialog, boxId, text, kReadLimit);
    return std::strtod(text, nullptr);
}
