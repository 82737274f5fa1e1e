#include "view/graph_fonts.h"

#include <cstring>

#include "contracts/mura.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"

MuraFont* gridFont = nullptr;
MuraFont* labelFont = nullptr;

namespace {

constexpr int kUiFontFlags = 0x200;
constexpr int kTransparentBackground = 0;
constexpr int kNormalWeight = 400;

MuraFont* createArialFont(int height) {
    if (!hostExtensions.createFont) return nullptr;
    MuraFont* font = hostExtensions.createFont();
    if (!font) return nullptr;
    LOGFONT description{};
    description.lfHeight = height;
    description.lfWeight = kNormalWeight;
    std::strcpy(description.lfFaceName, "Arial");
    font->takeUiFont(kobal::CreateFontIndirect(&description), kUiFontFlags);
    font->setBackgroundMode(kTransparentBackground);
    return font;
}

}  // namespace

void ensureGridFont() {
    if (!gridFont) gridFont = createArialFont(12);
}

void ensureLabelFont() {
    if (!labelFont) labelFont = createArialFont(10);
}

void destroyGraphFonts() {
    delete labelFont;
    labelFont = nullptr;
    delete gridFont;
    gridFont = nullptr;
}
