// The graph's two fonts, shared by all instances: created on first use and
// destroyed when the last instance closes.
#pragma once

class MuraFont;

extern MuraFont* gridFont;   // 12-pixel Arial, grid labels
extern MuraFont* labelFont;  // 10-pixel Arial, band numbers and the readout

void destroyGraphFonts();
