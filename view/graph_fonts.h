// The graph's two fonts, shared by all instances: created on first use and
// destroyed when the last instance closes.
#pragma once

class MuraFont;

extern MuraFont* gridFont;   // 12-pixel Arial, grid labels
extern MuraFont* labelFont;  // 10-pixel Arial, band numbers and the readout

// Create the font when it does not exist yet; it stays null when the host's
// raster library makes none.
void ensureGridFont();
void ensureLabelFont();

void destroyGraphFonts();
