// Text set the way Win32 DrawText sets it: lines in a rectangle, aligned by
// DT_ flags, clipped to the rectangle unless DT_NOCLIP. Shared by canvases
// and raster fonts. Text is UTF-8; anything that is not valid UTF-8 is read
// as Latin-1. Unless DT_NOPREFIX is given, "&" marks a mnemonic and is not
// drawn ("&&" draws one "&").
#pragma once

#include <cairo.h>

#include "contracts/kobal.h"

constexpr UINT DT_NOPREFIX = 0x0800;

struct TextFont {
    cairo_font_face_t* face = nullptr;
    // Like LOGFONT's lfHeight: positive for the cell height (ascent plus
    // descent), negative for the character height, 0 for the default.
    int height = 0;
};

// Selects `font` on `cr` at the pixel size its height asks for.
void selectTextFont(cairo_t* cr, const TextFont& font);

// The distance between two lines of the selected font, in whole pixels.
int textLineHeight(cairo_t* cr);

// Width and height in whole pixels of `text` (length bytes, or up to the
// terminator when length is negative) set on one line.
void measureTextLine(cairo_t* cr, const char* text, int length, int* width, int* height);

// Draws `text` into `rect` with the current source, or with DT_CALCRECT only
// measures it and sets rect's right and bottom edges to the text's extent.
// Returns the height of the text.
int layoutText(cairo_t* cr, const char* text, int length, RECT* rect, UINT flags);
