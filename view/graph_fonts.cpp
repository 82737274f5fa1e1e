#include "view/graph_fonts.h"

#include "contracts/mura.h"

MuraFont* gridFont = nullptr;
MuraFont* labelFont = nullptr;

void destroyGraphFonts() {
    delete labelFont;
    labelFont = nullptr;
    delete gridFont;
    gridFont = nullptr;
}
