#include "view/hover_readout.h"

#include <cstdio>

#include "contracts/mura.h"
#include "editor/gain_scale.h"
#include "engine/eq_band.h"
#include "plugin/host_imports.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"
#include "view/band_hit_test.h"
#include "view/graph_axes.h"
#include "view/graph_fonts.h"
#include "view/graph_snapshot.h"
#include "view/view_pointer.h"

namespace {

constexpr int kTextSize = 1024;
constexpr int kPointerGapX = 30;
constexpr int kPointerGapY = 8;
constexpr int kBackgroundColorIndex = 8;  // GetSysColor index of the box
constexpr int kTextColorIndex = 9;        // ... of its text and border
constexpr UINT DT_NOPREFIX = 0x800;

double readoutDb(double gain) {
    return gain >= kHighestBandGain ? ampToDb(kHighestBandGain) : displayDb(gain);
}

struct TextSize {
    int width;
    int height;
};

TextSize measure(MuraBitmap* bitmap, const char* text) {
    if (!labelFont) return TextSize{0, 0};
    RECT rect{0, 0, 0, 0};
    labelFont->drawText(bitmap, text, -1, &rect, DT_CALCRECT | DT_NOPREFIX);
    return TextSize{rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

void formatReadout(char* text, size_t size, const EqBand& band, int index) {
    const char* prefix = band.enabled ? "" : "DISABLED:";
    const char* name = bandTypeName(band.type);
    if (ignoresGain(band.type))
        std::snprintf(text, size, "%s%s %d: %.1fHz %.2f oct", prefix, name, index + 1,
                      band.frequency, band.bandwidth);
    else
        std::snprintf(text, size, "%s%s %d: %.1fdB %.1fHz %.2f oct", prefix, name, index + 1,
                      readoutDb(band.gain), band.frequency, band.bandwidth);
}

RECT placeReadout(POINT pointer, const RECT& client, int textWidth, int textHeight) {
    const int x = pointer.x < 0 ? 0 : pointer.x;
    RECT box{x + kPointerGapX, pointer.y + kPointerGapY, 0, 0};
    if (box.top + textHeight >= client.bottom) box.top = client.bottom - textHeight - 1;
    if (box.top <= 0) box.top = 1;
    box.right = box.left + textWidth;
    box.bottom = box.top + textHeight;
    if (box.right >= client.right - 1 && x - kPointerGapX - textWidth > 0) {
        box.left = x - kPointerGapX - textWidth;
        box.right = x - kPointerGapX;
    }
    return box;
}

void drawHoverReadout(MuraBitmap* bitmap, const GraphSnapshot& snapshot, HWND view) {
    const EqBand* band = snapshot.band(snapshot.hoverBand);
    if (!band) return;
    char text[kTextSize];
    formatReadout(text, sizeof text, *band, snapshot.hoverBand);
    const uint32_t textColor = kobal::GetSysColor(kTextColorIndex) & 0xffffff;
    const uint32_t background = kobal::GetSysColor(kBackgroundColorIndex) & 0xffffff;
    if (labelFont) labelFont->setTextColor(textColor);
    const TextSize size = measure(bitmap, text);
    RECT client{};
    kobal::GetClientRect(view, &client);
    RECT box = placeReadout(pointerInView(view), client, size.width, size.height);
    hostExtensions.borderedRect(bitmap, box.left - 2, box.top - 1, size.width + 4,
                                size.height + 2, background, textColor, 1.0, 0);
    if (labelFont) labelFont->drawText(bitmap, text, -1, &box, DT_NOPREFIX);
}
