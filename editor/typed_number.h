// Numbers the user types into the editor's boxes.
#pragma once

#include "contracts/kobal.h"

// Reads the box's text into `text` (at most 511 characters, terminator
// included) and returns the number it starts with; text that is no number
// reads as 0.
double readTypedNumber(HWND dialog, int boxId, char (&text)[512]);
