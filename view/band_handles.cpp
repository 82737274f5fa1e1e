#include "view/band_handles.h"

#include <cstdio>

#include "contracts/mura.h"
#include "engine/eq_band.h"
#include "plugin/host_imports.h"
#include "view/graph_fonts.h"
#include "view/graph_snapshot.h"

namespace {

constexpr float kHandleRadius = 6.0f;
constexpr int kLabelHalfHeight = 6;
constexpr uint32_t kBlackText = 0x00000000;

bool isPassFilter(int32_t type) { return type == LowPass || type == HighPass; }

uint32_t handleColor(const EqBand& band, bool selected) {
    if (selected) return band.enabled ? 0xffff2222 : 0xffff0000;
    if (isPassFilter(band.type)) return 0xffffff00;
    return band.enabled ? 0xffffffff : 0xff666666;
}

void drawHandle(MuraBitmap* bitmap, const EqBand& band, int index, bool selected,
                const GraphAxes& axes) {
    const int x = frequencyToColumn(band.frequency, axes.width);
    const int row = handleRow(axes, band.type, band.gain);
    const int centre = row < 0 ? 0 : row >= axes.height ? axes.height - 1 : row;
    const HandleLook look = handleLook(band, selected);
    const auto draw = look.filled ? hostExtensions.fillCircle : hostExtensions.circle;
    draw(bitmap, static_cast<float>(x), static_cast<float>(centre), kHandleRadius, look.color, 1.0,
         0, 1);
    if (!labelFont) return;
    char number[16];
    std::snprintf(number, sizeof number, "%d", index + 1);
    RECT rect{x - 5, centre - kLabelHalfHeight, x + 6, centre + kLabelHalfHeight};
    labelFont->setTextColor(look.numberColor);
    labelFont->drawText(bitmap, number, -1, &rect, DT_CENTER | DT_VCENTER);
}

}  // namespace

HandleLook handleLook(const EqBand& band, bool selected) {
    const uint32_t color = handleColor(band, selected);
    return band.enabled ? HandleLook{true, color, kBlackText} : HandleLook{false, color, color};
}

void drawBandHandles(MuraBitmap* bitmap, const GraphSnapshot& snapshot, const GraphAxes& axes) {
    for (int32_t i = 0; i < snapshot.count; ++i)
        if (const EqBand* band = snapshot.band(i))
            drawHandle(bitmap, *band, i, i == snapshot.selectedBand, axes);
}
